"""The stub agrees with the module, and type checkers accept what runs. Needs mypy."""

import doctest, importlib.util, inspect, os, pathlib, subprocess, sys, tempfile, unittest

import vstring

PACKAGE_FOLDER = str(pathlib.Path(vstring.__file__).parent.parent)
USE = """
import builtins
text: str = vstring.reverse("abc")
data: builtins.bytes = vstring.reverse(b"abc")
mixed: builtins.bytes = vstring.decode(b"YQ==", "base64")
number: int = vstring.length("abc")
joined: str = vstring.join(["a", "b"], ", ")
lengths: list[int] = vstring.each(vstring.length, ["a"])
vstring.take("abc")  # ERROR
vstring.length(["a"])  # ERROR
wrong: str = vstring.reverse(b"abc")  # ERROR
"""


@unittest.skipUnless(importlib.util.find_spec("mypy"), "mypy is not installed")
class Stub(unittest.TestCase):
    def mypy(self, module, *arguments):
        return subprocess.run(
            [sys.executable, "-m", module, *arguments],
            env={**os.environ, "MYPYPATH": PACKAGE_FOLDER},
            cwd=self.folder,
            capture_output=True,
            text=True,
        )

    def setUp(self):
        self.folder = self.enterContext(tempfile.TemporaryDirectory())

    def test_agrees_with_the_module(self):
        result = self.mypy("mypy.stubtest", "vstring", "--ignore-missing-stub")
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_types(self):
        parser = doctest.DocTestParser()
        examples = [
            example.source
            for function in vars(vstring).values()
            if inspect.isbuiltin(function)
            for example in parser.get_examples(function.__doc__)
        ]
        source = "import vstring\n" + "".join(examples) + USE
        pathlib.Path(self.folder, "use.py").write_text(source, encoding="utf-8")
        result = self.mypy("mypy", "--strict", "use.py")
        found = {int(line.split(":")[1]) for line in result.stdout.splitlines() if "error:" in line}
        meant = {i for i, line in enumerate(source.splitlines(), 1) if "# ERROR" in line}
        self.assertEqual(found, meant, result.stdout)


if __name__ == "__main__":
    unittest.main()
