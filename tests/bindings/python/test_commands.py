"""Every command is there, documented, and gives what its example says."""

import builtins, contextlib, doctest, inspect, io, pathlib, pickle, re, unittest

import vstring

FUNCTIONS = {name: f for name, f in vars(vstring).items() if inspect.isbuiltin(f)}


class Commands(unittest.TestCase):
    def test_examples_give_what_they_say(self):
        parser = doctest.DocTestParser()
        for name, function in FUNCTIONS.items():
            examples = parser.get_examples(function.__doc__)
            self.assertTrue(examples, name)
            for example in examples:
                with self.subTest(example.source), contextlib.redirect_stdout(io.StringIO()):
                    value = eval(example.source, {"vstring": vstring})
                    shown = "" if value is None else repr(value) + "\n"
                    self.assertEqual(shown, example.want)

    def test_documents_show_what_comes_out(self):
        root = pathlib.Path(__file__).parents[3]
        for document in (root / "README.md", root / "docs" / "python.md"):
            blocks = re.findall(r"```pycon\n(.*?)```", document.read_text("utf-8"), re.DOTALL)
            test = doctest.DocTestParser().get_doctest("".join(blocks), {}, document.name, None, 0)
            self.assertGreater(len(test.examples), 3)
            self.assertEqual(doctest.DocTestRunner().run(test).failed, 0)

    def test_functions(self):
        self.assertEqual(len(FUNCTIONS), 218 + len(["version", "Version", "WildcardMatch", "each"]))
        self.assertIs(vstring.Version, vstring.version)
        for name, function in FUNCTIONS.items():
            self.assertEqual(function.__module__, "vstring")
            self.assertIs(pickle.loads(pickle.dumps(function)), function)
            self.assertRegex(function.__doc__, rf"\A{function.__name__}\(.*\)\n\n")
            self.assertEqual(name in vstring.__all__, not hasattr(builtins, name), name)


if __name__ == "__main__":
    unittest.main()
