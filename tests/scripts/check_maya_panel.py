"""Checks the Maya panel script without Maya: it compiles, imports only what Maya 2019 ships
(maya, PySide2, shiboken2 and the standard library), keeps to syntax Python 2.7 also reads, and
creates every control the tool looks up by name."""

import ast
import os
import py_compile
import sys
import tempfile

ALLOWED_PACKAGES = {"maya", "PySide2", "shiboken2"}
CONTROLS_THE_TOOL_FINDS = {"kyStrakeLaunchBtn", "freezeBtn", "freezeSymBtn", "lockedPinchChk", "pinchSlid",
                           "bridgeSpin"}
# Python 3 syntax that Python 2.7 cannot read.
PYTHON3_ONLY = (ast.JoinedStr, ast.Nonlocal, ast.AnnAssign, ast.AsyncFunctionDef, ast.Await)


def imported_packages(tree):
    for node in ast.walk(tree):
        if isinstance(node, ast.Import):
            for alias in node.names:
                yield alias.name.split(".")[0], node.lineno
        elif isinstance(node, ast.ImportFrom):
            yield (node.module or "").split(".")[0], node.lineno


def problems(path):
    with tempfile.TemporaryDirectory() as scratch:
        py_compile.compile(path, cfile=os.path.join(scratch, "panel.pyc"), doraise=True)
    with open(path) as source:
        tree = ast.parse(source.read(), path)
    for package, line in imported_packages(tree):
        if package not in ALLOWED_PACKAGES and package not in sys.stdlib_module_names:
            yield "line %d imports %s, which Maya 2019 does not ship" % (line, package)
    for node in ast.walk(tree):
        if isinstance(node, PYTHON3_ONLY):
            yield "line %d uses %s, which Python 2.7 cannot read" % (node.lineno, type(node).__name__)
        if isinstance(node, (ast.FunctionDef, ast.Lambda)):
            arguments = node.args
            if arguments.kwonlyargs or any(a.annotation for a in arguments.args) or getattr(node, "returns", None):
                yield "line %d has keyword-only arguments or annotations" % node.lineno
    names = {node.args[1].value for node in ast.walk(tree)
             if isinstance(node, ast.Call) and getattr(node.func, "id", "") in ("named", "push_button", "spin_box")
             and len(node.args) > 1 and isinstance(node.args[1], ast.Constant)}
    names |= {node.args[0].value for node in ast.walk(tree)
              if isinstance(node, ast.Call) and getattr(node.func, "id", "") in ("push_button", "spin_box")
              and isinstance(node.args[0], ast.Constant)}
    for missing in sorted(CONTROLS_THE_TOOL_FINDS - names):
        yield "no control named %s" % missing


def main():
    found = list(problems(sys.argv[1]))
    for problem in found:
        print("%s: %s" % (sys.argv[1], problem))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
