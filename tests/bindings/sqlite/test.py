"""The SQLite extension in a program: examples, random calls, threads, memory.

Usage: test.py BUILD_FOLDER [TEST...], from the top of the tree, with helper.so preloaded.
"""
import locale, os, random, re, resource, sqlite3, subprocess, sys, threading, unittest

BUILD = sys.argv.pop(1)
FOLDER = BUILD + '/bindings/sqlite'
ROWS = 'WITH c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c LIMIT %d) '


def connect():
    db = sqlite3.connect(':memory:')
    db.text_factory = lambda text: text.decode(errors='surrogateescape')
    db.enable_load_extension(True)
    db.load_extension(FOLDER + '/vstring_sqlite')
    db.load_extension(FOLDER + '/tests/helper')
    return db


class TestCase(unittest.TestCase):
    def connect(self):
        db = connect()
        self.addCleanup(db.close)
        return db


def ask(db, sql, *parameters):
    return db.execute(sql, parameters).fetchall()


def one(db, expression, *parameters):
    return ask(db, 'SELECT ' + expression, *parameters)[0][0]


def quoted(text):
    return "CAST(x'%s' AS TEXT)" % text.encode(errors='surrogateescape').hex()


def sql_of(expression):
    """An expression of velmor in SQL, without procedures and names that are no strings."""
    def token(match):
        text, call, name, other = match.groups()
        if text is not None:
            escapes = {'n': '\n', 't': '\t', 'r': '\r'}
            data = re.sub(rb'\\(\d{3}|.)', lambda m: bytes([int(m[1], 8)]) if len(m[1]) == 3 else
                          escapes.get(m[1].decode(), m[1].decode()).encode(), text.encode())
            return "CAST(x'%s' AS TEXT)" % data.hex()
        if call:
            return 'vs_%s(' % call
        if name in ('true', 'false'):
            return "json('%s')" % name
        if name and name != 'NULL':
            return quoted(name)
        return {'[': 'json_array(', ']': ')'}.get(other, name or other)

    sql = re.sub(r'"((?:[^"\\]|\\.)*)"|(\w+)\(|([A-Za-z_]\w*)|(\d+\.\d+|\d+|\.\.|.)', token, expression)
    operand = r"(CAST\([^)]*\)|json\([^)]*\)|-?\d+)"
    sql = re.sub(operand + r' \.\. ' + operand, r'vs_range(\1, \2)', sql)
    return re.sub(operand + ' = ' + operand, r'json_object(\1, \2)', sql)


class Examples(TestCase):
    def test_give_their_results(self):
        db = self.connect()
        with open('src/host/exports.txt') as exports:
            names = re.findall(r'^vstring_?(\w+)$', exports.read(), re.M)
        through_vs_alone = []
        for name in sorted(set(names) - {'Init', 'Release', 'Version', 'wildTester'}):
            page = subprocess.run([BUILD + '/velmor/velmor', 'help', name], capture_output=True)
            example, result = re.search(r'^  > (.*);\n((?:  .*)?)', page.stdout.decode(), re.M).groups()
            result = result.strip() or 'NULL'
            with self.subTest(name):
                self.assertEqual(one(db, 'vs(?) IS vs(?)', example, result), 1)
            # Both sides are lists, so that calls with several values need no care.
            calls, values = sql_of(example), sql_of(result)
            try:
                got = one(db, 'json_array(%s)' % calls)
            except sqlite3.OperationalError:
                through_vs_alone.append(name)
                continue
            listed = one(db, 'json_array(%s)' % values).replace('true', '1').replace('false', '0')
            with self.subTest(name):
                self.assertIn(got.replace('null,', ''), (listed, '[%s]' % listed))
        self.assertEqual(through_vs_alone, 'dictCreate dictObjFree dictObjSearch filter foldl foldr '
                         'groupby ipsum map reject tabulate'.split())


class Sharing(TestCase):
    def test_state_is_forgotten_with_the_last_connection(self):
        draw, size = "vs_random(9, 'lower')", 'vs_dictObjSize(1)'
        first = self.connect()
        drawn = one(first, draw)
        self.assertEqual(one(first, "vs_dictCreate(json_array('a', 'b'))"), 1)
        second = self.connect()
        first.close()
        self.assertEqual(one(second, size), 2)
        self.assertNotEqual(one(second, draw), drawn)
        second.close()
        third = self.connect()
        self.assertRaises(sqlite3.OperationalError, one, third, size)
        self.assertEqual(one(third, draw), drawn)

    def test_threads_have_connections_of_their_own(self):
        wrong = []

        def work(n):
            for _ in range(10):
                db = connect()
                # Of equal weights the first word is the smaller.
                found = ask(db, ROWS % 200 + """SELECT sum(vs_wslo('a', 'b', json(printf(
                    '[{"a":%d},{"b":%d}]', ?, n)))), sum(value) FROM c, vs_each(
                    'regmatch("b", "b", k), _1, k', ?) WHERE position = 2""", n, n)
                if found != [(2 * n - 202, 200 * n)]:
                    wrong.append(found)
                # No deeper than a thread's own stack allows.
                try:
                    one(db, "vs('apply(g -> g(g), [g -> g(g)])')")
                except sqlite3.OperationalError as error:
                    if 'too deeply' not in str(error):
                        wrong.append(error)
                deep = '[' * 480 + ']' * 480
                if one(db, "vs('_1', json(?)) = vs(?)", deep, deep) != 1:
                    wrong.append('deep')
                db.close()

        # A sanitizer's frames are several times as large.
        threading.stack_size((8 if 'ASAN_OPTIONS' in os.environ else 1) << 20)
        threads = [threading.Thread(target=work, args=[n]) for n in range(1, 5)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(wrong, [])

    def test_locale_is_left_alone(self):
        # In a process of its own: the library asks for a locale once in its life.
        if sys.argv[1:] != ['Sharing.test_locale_is_left_alone']:
            command = [sys.executable, __file__, BUILD, 'Sharing.test_locale_is_left_alone']
            self.assertEqual(subprocess.run(command, capture_output=True).returncode, 0)
            return
        before = locale.setlocale(locale.LC_ALL, 'C.UTF-8')
        found = one(self.connect(), "vs_regmatch('a', 'a') + vs_length(vs_fmttime('%A'))")
        self.assertGreater(found, 1)
        self.assertEqual(locale.setlocale(locale.LC_ALL), before)

    def test_utf_16(self):
        db = self.connect()
        db.executescript("PRAGMA encoding = 'UTF-16le'; CREATE TABLE t(s)")
        db.execute("INSERT INTO t VALUES ('né'), ('😀')")
        self.assertEqual(ask(db, '''SELECT vs_length(s), vs_cap(s, '<', '>'), vs_words(s),
            vs('size(_1)', s), vs_implode(vs_explode(s)) IS s FROM t'''),
            [(3, '<né>', '["né"]', 1, 1), (4, '<😀>', '["😀"]', 1, 1)])


class Memory(TestCase):
    def test_deep_and_huge_values_are_refused(self):
        db = self.connect()
        for depth in 501, 100000:
            self.assertRaisesRegex(sqlite3.OperationalError, '_1: JSON nested too deeply', one, db,
                                   "vs('_1', mark(?))", '[' * depth)
        db.setlimit(sqlite3.SQLITE_LIMIT_LENGTH, 1000)
        self.assertEqual(one(db, "length(vs_repeat('a', 1000))"), 1000)
        for call in ("vs_repeat('a', 1001)", "vs_explode(vs_repeat('a', 600))",
                     "vs('repeat(\"a\", 1001)')", "vs_repeat(x'61', 5000000)"):
            self.assertRaisesRegex(sqlite3.DataError, 'too big', one, db, call)

    def test_stays_flat(self):
        db = self.connect()
        work = ROWS + """SELECT max(vs_length(vs_reverse(x)) + vs('size(_1)', vs_explode(x)) +
            vs('foldl((r, c) -> size([r, c]), 0, "' || x || '")') + (SELECT count(*) FROM
            vs_each('explode(_1)', x))) FROM (SELECT 'word ' || n AS x FROM c)"""
        self.assertEqual(ask(db, work % 20000), [(10 + 10 + 2 + 10,)])
        before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        ask(db, work % int(os.environ.get('VSTRING_SQLITE_ROWS', 100000)))
        self.assertLess(resource.getrusage(resource.RUSAGE_SELF).ru_maxrss, before + 2048)

    def test_want_of_it_is_an_error(self):
        db = self.connect()
        failures = 0
        for call in ("vs_words('one two three')", "vs_join(json_array('a', 'b'), '-')",
                     "vs('map(c -> cap(c, _1, _1), \"abc\")', '-')",
                     "(SELECT value FROM vs_each('tally(_1)', 'banana') LIMIT 1)"):
            expected = one(db, call)
            for k in range(1, 1000):
                one(db, 'fail_new(?)', k)
                try:
                    self.assertEqual(one(db, call), expected)
                except (MemoryError, sqlite3.OperationalError) as error:
                    self.assertRegex(str(error), '^$|memory|bad_alloc')
                if one(db, 'fail_new(-1)') > 0:
                    break
                failures += 1
            self.assertEqual(one(db, call), expected)
        self.assertGreater(failures, 50)


class Random(TestCase):
    WORDS = ('a ab banana kitten lower utf8 hex base64 left md5 builtin [a-c] (a|b)+c? %1 %-2 '
             '%Y-%m-%d osa né ACGT ()[]').split() + ['The cat. Sat!', '']
    JSON = r'''["a","b"] [] [[1,2],"x"] {"a":1,"b":3} [{"a":"ab"}] {"..":[2,3]} {"..":[-1,"a"]}
        {"method":"md4"} true null [null] "\udcff\ud83d" ["a\u0000"] 12345678901234567890123 -1.5e9
        [1,2 {"a" "\u12" [01] tru [1]x {"a":{"b":[{}]}} "\q" {"a":{"b":1,"c":2}} - 1. 1e'''.split()
    EXPRESSIONS = ('_1;_2, _1;map(x -> cap(x, _1, _2), _1);search(_1, _2);[_1, {_2}];_1[_2];_1 + _2;'
                   '_1 = _2;_1 .. _2;tally(_1);apply(x -> x, _1);regmatch(_1, _2, m), m;_1 < _2;'
                   "take(_1;k := _1;size(_1);'f(_1)';foldl((r, c) -> [r, c], _1, _2)").split(';')

    def value(self):
        """SQL with at most one parameter, and its value."""
        kind = self.random.randrange(16)
        if kind < 2:
            return self.random.choice(['NULL', 'pointer()', 'zeroblob(2)', "x''", '9e999', '0.5', '-1.0']), []
        if kind < 6:
            return '?', [self.random.choice([0, 1, 2, 3, 5, -1, -2, 8, 64, 255, 256, 5000, 1 << 40,
                                             (1 << 63) - 1, -1 << 63])]
        if kind < 9:
            return 'mark(?)', [self.random.choice(self.JSON)]
        if kind < 13:
            return '?', [self.random.choice(self.WORDS)]
        size = self.random.randrange(9000 if kind == 13 else 9)
        data = bytes(self.random.choices(range(256) if kind == 14 else b'abcd ', k=size))
        return self.random.choice(['?', 'CAST(? AS TEXT)']), [data]

    def query(self):
        values = [self.value() for _ in range(self.random.choice([0, 1, 1, 1, 2, 2, 2, 3, 3, 4, 8]))]
        arguments = ', '.join(sql for sql, _ in values)
        expression = ', '.join(["'%s'" % self.random.choice(self.EXPRESSIONS).replace("'", "''"), arguments])
        expression = expression.removesuffix(', ')
        kind = self.random.randrange(12)
        parameters = [x for _, given in values for x in given]
        if kind == 0:
            return 'SELECT 1, count(value) FROM (SELECT value FROM vs_each(%s) LIMIT 99)' % expression, parameters
        call = 'vs(%s)' % expression if kind == 1 else '%s(%s)' % (self.random.choice(self.names), arguments)
        # What has the subtype of JSON is JSON.
        return "SELECT vs('[_1]', r) NOTNULL OR r ISNULL, r FROM (SELECT %s AS r LIMIT 1)" % call, parameters

    def test_calls_are_sound(self):
        calls = int(os.environ.get('VSTRING_RANDOM_CALLS', 20000))
        self.random = random.Random(20260117)
        db = self.connect()
        db.setlimit(sqlite3.SQLITE_LIMIT_LENGTH, 1 << 20)
        # wildTester writes to the terminal.
        self.names = [name for name, in ask(db, "SELECT DISTINCT name FROM pragma_function_list "
                                                "WHERE name GLOB 'vs_*' AND name <> 'vs_wildtester'")]
        answers = 0
        for _ in range(calls):
            sql, parameters = self.query()
            with self.subTest(sql, parameters=parameters):
                try:
                    self.assertEqual(ask(db, sql, *parameters)[0][0], 1)
                    answers += 1
                except (sqlite3.OperationalError, sqlite3.DataError, MemoryError) as error:
                    self.assertRegex(str(error), '^vs|too big|^$')
        print('%d of %d random calls gave an answer.' % (answers, calls))


if __name__ == '__main__':
    # Some commands take as much memory as they are told to. (A sanitizer has its own limit.)
    if 'ASAN_OPTIONS' not in os.environ:
        resource.setrlimit(resource.RLIMIT_AS, (1 << 30, 1 << 30))
    unittest.main()
