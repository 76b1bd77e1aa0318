"""Calls: errors, procedures, each(), threads."""

import io, contextlib, os, subprocess, sys, threading, time, unittest

import vstring
from vstring import Eq, Error, Name


def python(program):
    """What a fresh interpreter prints."""
    return subprocess.run(
        [sys.executable, "-c", "import vstring\n" + program],
        check=True, capture_output=True, text=True, timeout=60,
    ).stdout


class Errors(unittest.TestCase):
    def test_message_and_command(self):
        for command, call, message in (
            ("take", lambda: vstring.take("abc", -1), "second argument must be non-negative"),
            ("length", lambda: vstring.length(), "expecting one argument, but got 0"),
            ("hash", lambda: vstring.hash("a", method="x"), "unrecognised method `\"x\"'"),
            ("map", lambda: vstring.map(Name("nothing"), "a"), "no command nothing"),
            ("take", lambda: vstring.map(Name("take"), "a"), "expecting 2 arguments, but got 1"),
            ("take", lambda: vstring.map(vstring.take, "a"), "expecting 2 arguments, but got 1"),
            ("take", lambda: vstring.each("take", ["a"]), "expecting 2 arguments, but got 1"),
        ):
            with self.assertRaises(Error) as caught:
                call()
            self.assertEqual(caught.exception.command, command)
            self.assertEqual(str(caught.exception), message)
        self.assertTrue(issubclass(Error, ValueError))

    def test_memory(self):
        limited = "import resource; resource.setrlimit(resource.RLIMIT_AS, (1 << 30, 1 << 30))\n"
        attempt = (
            "for i in range(3):\n"
            "  try: vstring.repeat('abc' * 10**6, 2000)\n"
            "  except MemoryError: print(vstring.length('abc'))"
        )
        self.assertEqual(python(limited + attempt), "3\n" * 3)


class Procedures(unittest.TestCase):
    def test_callables(self):
        self.assertEqual(vstring.map(str.upper, "abc"), "ABC")
        self.assertEqual(vstring.map(lambda c: vstring.map(vstring.uppercase, c + "x"), "ab"), "AXBX")
        self.assertEqual(vstring.map(Name("uppercase"), "ab"), "AB")
        self.assertEqual(vstring.filter(lambda c: c > "a", "abc"), "bc")
        self.assertEqual(vstring.foldl(lambda z, c: [z, c], [], "ab"), [[[], "a"], "b"])
        self.assertEqual(vstring.foldr(lambda c, z: z + 2**80, 0, "ab"), 2**81)
        self.assertEqual(vstring.fmtmsg("%1", str.upper), "upper")
        long = "ab" * 5000
        self.assertEqual(vstring.map(lambda c: c, long), long)

    def test_exceptions_come_through(self):
        for error in (KeyError("k"), KeyboardInterrupt(), SystemExit(3), Error("m", "c"), StopIteration()):

            def fail(c):
                raise error

            for text in ("abc", "a" * 10_000):
                with self.assertRaises(type(error)) as caught:
                    vstring.map(lambda c: vstring.foldl(lambda z, d: fail(d), 0, c), text)
                self.assertIs(caught.exception, error)
        self.assertEqual(vstring.length("abc"), 3)

    def test_depth(self):
        def deeper(c):
            return vstring.map(deeper, c)

        limit = sys.getrecursionlimit()
        for size in (limit, 10**6):
            sys.setrecursionlimit(size)
            try:
                with self.assertRaises(RecursionError):
                    deeper("a")
            finally:
                sys.setrecursionlimit(limit)

    def test_output_and_information(self):
        with contextlib.redirect_stdout(io.StringIO()) as out:
            self.assertIsNone(vstring.config())
        self.assertIn("Package: vstring", out.getvalue())
        with self.assertLogs("vstring", "INFO"):
            vstring.dictObjFree(vstring.dictCreate(["a"]))

        class Broken:
            def write(self, text):
                raise OSError(5, text)

        with contextlib.redirect_stdout(Broken()), self.assertRaises(OSError):
            vstring.config()


class Each(unittest.TestCase):
    def test_each(self):
        self.assertEqual(vstring.each("length", iter(["a", b"bc", ""])), [1, 2, 0])
        self.assertEqual(vstring.each(vstring.cap, ["a", b"b", "c"], "<", ">"), ["<a>", b"<b>", "<c>"])
        self.assertEqual(vstring.each("cap", "ab", "<", vstring._, vstring._), ["a<a", "b<b"])
        self.assertEqual(vstring.each("stem", ["churches"], stemmer=Name("plural")), ["church"])
        self.assertEqual(vstring.each("map", ["ab", "c"], lambda c: c + c, vstring._), ["aabb", "cc"])
        self.assertEqual(vstring.each("WildcardMatch", ["a", "b"], "b"), [False, True])
        self.assertEqual(vstring.each("search", ["xa"] * 3, ["a", "b"], vstring._), [[2, 1]] * 3)
        m = Name("m")
        vstring.each("regmatch", ["ab", "ac"], "a.", vstring._, m)
        self.assertEqual(m.value, "ac")

    def test_refusals(self):
        def broken():
            yield "a"
            raise KeyError

        for error, arguments in (
            (TypeError, ("length",)),
            (TypeError, ("lengths", [])),
            (TypeError, (len, [])),
            (TypeError, ("length", 5)),
            (TypeError, ("length", [object()])),
            (TypeError, ("cap", [], object())),
            (KeyError, ("length", broken())),
            (Error, ("length", ["a", 5])),
        ):
            with self.assertRaises(error):
                vstring.each(*arguments)


class Threads(unittest.TestCase):
    def run_all(self, *tasks):
        failures = []

        def guarded(task):
            try:
                task()
            except BaseException as failure:
                failures.append(failure)

        threads = [threading.Thread(target=guarded, args=(task,)) for task in tasks]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join(60)
        self.assertFalse(any(thread.is_alive() for thread in threads))
        self.assertEqual(failures, [])

    def test_many_at_once(self):
        def work():
            m = Name("m")
            for i in range(200):
                mine = f"{threading.get_ident()}x{i}"
                self.assertTrue(vstring.regmatch(".*", mine, m))
                self.assertEqual(m.value, mine)
                self.assertEqual(vstring.map(lambda c: c + "", mine), mine)
                self.assertEqual(vstring.reverse(vstring.reverse(mine * 1000)), mine * 1000)
                with self.assertRaises(ZeroDivisionError):
                    vstring.map(lambda c: 1 / 0, mine)

        self.run_all(*[work] * 6)

    def test_others_run_during_a_long_call(self):
        done = []
        a, b = "ab" * 20_000, "ba" * 20_000

        def count():
            while not done:
                ticks.append(time.monotonic())
                time.sleep(0.001)

        ticks = []
        thread = threading.Thread(target=count)
        thread.start()
        begin = time.monotonic()
        while time.monotonic() - begin < 0.5:
            vstring.lcs(a, b)
        done.append(True)
        thread.join()
        self.assertGreater(len(ticks), 10)

    def test_procedures_that_wait_for_others(self):
        """While a procedure waits, other threads run, and calls of theirs wait without the GIL."""
        entered = threading.Event()

        def slow(c):
            entered.set()
            time.sleep(0.05)
            return c

        def other():
            entered.wait()
            self.assertEqual(vstring.length("abc"), 3)

        self.run_all(lambda: self.assertEqual(vstring.map(slow, "abcd"), "abcd"), other, other)

    def test_end_of_the_interpreter(self):
        for body in ("vstring.map(lambda c: time.sleep(9), 'a')", "vstring.lcs('ab' * 10**5, 'ba' * 10**5)"):
            program = (
                "import atexit, threading, time\n"
                f"def work():\n  while True: {body}\n"
                "threading.Thread(target=work, daemon=True).start()\n"
                "time.sleep(0.2); print('end')"
            )
            self.assertEqual(python(program), "end\n")

    def test_interrupt_while_waiting(self):
        program = (
            "import os, signal, threading, time\n"
            # A shell that starts a job in the background has it ignore the signal.
            "signal.signal(signal.SIGINT, signal.default_int_handler)\n"
            "entered, interrupted = threading.Event(), threading.Event()\n"
            "def slow(c): entered.set(); interrupted.wait(60); return c\n"
            "threading.Thread(target=vstring.map, args=(slow, 'a')).start()\n"
            "entered.wait()\n"
            "threading.Timer(0.2, os.kill, (os.getpid(), signal.SIGINT)).start()\n"
            "try: vstring.length('a')\n"
            "except KeyboardInterrupt: interrupted.set(); print(True)"
        )
        self.assertEqual(python(program), "True\n")

    def test_fork_while_another_thread_calls(self):
        program = (
            "import os, threading\n"
            "def work():\n  while not done: vstring.lcs('ab' * 3000, 'ba' * 3000)\n"
            "done = []\n"
            "thread = threading.Thread(target=work); thread.start()\n"
            "for i in range(20):\n"
            "  child = os.fork()\n"
            "  if child == 0: os._exit(vstring.length('abc'))\n"
            "  assert os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 3\n"
            "done.append(1); thread.join(); print('forked')"
        )
        self.assertEqual(python(program), "forked\n")

    def test_the_locale_stays(self):
        program = (
            "import locale\n"
            "before = locale.setlocale(locale.LC_ALL, 'C.UTF-8')\n"
            "vstring.fmttime('%A'); vstring.regmatch('a', 'b')  # the first one asks for 'C'\n"
            "print(locale.setlocale(locale.LC_ALL) == before)"
        )
        self.assertEqual(python(program), "True\n")


if __name__ == "__main__":
    unittest.main()
