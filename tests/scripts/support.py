"""Loads the Python programs of scripts/, whose names have no suffix, as modules."""

import importlib.machinery
import importlib.util
import pathlib
import sys


def load(name):
    path = pathlib.Path(__file__).resolve().parents[2] / "scripts" / name
    loader = importlib.machinery.SourceFileLoader(name.replace("-", "_"), str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    sys.modules[loader.name] = module  # Where dataclasses look for their own module.
    loader.exec_module(module)
    return module
