"""Builds the package with CMake: pip install . (see docs/python.md).

There is no pyproject.toml on purpose: with one, pip would fetch setuptools, which is there already.
"""

import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
VERSION = re.search(r"project\(vstring VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text())[1]


class BuildWithCMake(build_ext):
    """The target makes the whole package, stub included."""

    def run(self):
        folder = pathlib.Path(self.build_temp).resolve() / "cmake"
        options = {
            "CMAKE_BUILD_TYPE": "Release",
            "BUILD_TESTING": "OFF",
            "VSTRING_WARNINGS_AS_ERRORS": "OFF",
            "Python3_EXECUTABLE": sys.executable,
        }
        definitions = [f"-D{name}={value}" for name, value in options.items()]
        subprocess.run(["cmake", "-S", ROOT, "-B", folder, "-G", "Ninja", *definitions], check=True)
        subprocess.run(["cmake", "--build", folder, "--target", "vstring_python"], check=True)
        made = folder / "bindings" / "python" / "vstring"
        package = HERE / "vstring" if self.inplace else pathlib.Path(self.build_lib) / "vstring"
        shutil.copytree(made, package, dirs_exist_ok=True)


setup(
    name="vstring",
    version=VERSION,
    description="218 commands over byte strings",
    license="MIT",
    python_requires=">=3.10",
    packages=["vstring"],
    ext_modules=[Extension("vstring._vstring", sources=[], py_limited_api=True)],
    cmdclass={"build_ext": BuildWithCMake},
    options={"bdist_wheel": {"py_limited_api": "cp310"}},
    zip_safe=False,
)
