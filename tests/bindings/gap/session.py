"""GAP with the module, and velmor, as programs that are given statements."""
import ast, os, subprocess

BUILD = os.environ["VSTRING_BUILD"]
GAP = os.environ["VSTRING_GAP"].split()

# Shown as velmor prints it: the items of a list, of which `fmtmsg` prints all but the brackets.
PROLOGUE = """
SetPrintFormattingStatus("*stdout*", false);
SetPrintFormattingStatus("*errout*", false);
show := function(items) Print(VString.fmtmsg("%1", items), "\\n"); end;;
"""


def answers_of(program, statements, mark_statement, mark):
    """What comes out of each statement."""
    text = "".join(f"{mark_statement}\n{statement}\n" for statement in statements)
    done = subprocess.run(program, input=text.encode("latin-1"), stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=600, check=False)
    if done.returncode < 0:
        raise SystemExit(f"{program[0]} died by signal {-done.returncode}")
    return [part.strip() for part in done.stdout.decode("latin-1").split(mark + "\n")[1:]]


def gap(statements):
    lines = [PROLOGUE.replace("\n", " "), *statements]
    return answers_of(GAP, lines, 'Print("@@\\n");;', "@@")[1:]


def velmor(statements):
    return answers_of([f"{BUILD}/velmor/velmor"], [s + ";" for s in statements], '"@@";', '"@@"')


def rows():
    """Name, signature, help, example, its result, what comes back, and notes of each command."""
    return ast.literal_eval(gap(["show(VSTRING_ROWS());"])[0])
