"""GAP with the module, and velmor, as programs that are given statements."""
import ast
import os
import subprocess

BUILD = os.environ["VSTRING_BUILD"]
GAP = os.environ["VSTRING_GAP"].split()
MARK = "@@"

# Shown as velmor prints it: the items of a list, of which `fmtmsg` prints all but the brackets.
PROLOGUE = """
SetPrintFormattingStatus("*stdout*", false);
SetPrintFormattingStatus("*errout*", false);
show := function(items) Print(VString.fmtmsg("%1", items), "\\n"); end;;
"""


def answers_of(program, statements, mark):
    """What comes out of each statement."""
    text = "".join(f"{mark}{statement}\n" for statement in statements)
    done = subprocess.run(program, input=text.encode("latin-1"), stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=600, check=False)
    if done.returncode < 0:
        raise SystemExit(f"{program[0]} died by signal {-done.returncode}")
    return [part.strip() for part in done.stdout.decode("latin-1").split(MARK)[1:]]


def gap(statements, *options, prologue=PROLOGUE):
    lines = [prologue.replace("\n", " "), *statements]
    return answers_of([*GAP, *options], lines, f'Print("{MARK}\\n");;')[1:]


def velmor(statements):
    """Errors as GAP has them, without the place."""
    answers = answers_of([f"{BUILD}/velmor/velmor"], [s + ";" for s in statements], f'"{MARK}";\n')
    return [a.removeprefix('"').removesuffix('"').strip() for a in answers]


def rows():
    """Name, signature, help, example, its result, what comes back, and notes of each command."""
    return ast.literal_eval(gap(["show(VSTRING_ROWS());"])[0])
