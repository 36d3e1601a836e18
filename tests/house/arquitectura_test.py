"""The floor check lets what is allowed pass and fails on everything else."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "arquitectura"

ALLOWED = [
    ("include/kvraedi/ui/a.h", '#include "kvraedi/error.h"'),
    ("frame/a.cc", '#include "kvraedi/error.h"'),
    ("frame/a.cc", '#include "frame/ui/b.h"'),
    ("frame/a.cc", "#include <vector>"),
    ("frame/a.cc", '// #include "dispatch/b.h"'),
    ("seres/a.cc", '#include "frame/b.h"'),
    ("dispatch/a.cc", '#include "seres/b.h"'),
    ("reception/a.cc", '#include "facturae/b.h"'),
    ("platform/qt/a.cc", '#include "platform/qt/b.h"'),
    ("platform/qt/a.cc", '#include "kvraedi/ui/form.h"'),
    ("platform/qt/a.cc", "#include <QWidget>"),
    ("platform/sqlite/a.cc", "#include <sys/stat.h>"),
    ("host/cli/a.cc", '#include "platform/qt/b.h"'),
    ("host/cli/a.cc", '#include "host/demo/b.h"'),
    ("host/cli/a.cc", "#include <CLI/CLI.hpp>"),
    ("tests/a.cc", '#include "dispatch/b.h"'),
    ("bench/a.cc", '#include "frame/b.h"'),
]

FORBIDDEN = [
    # upwards
    ("include/kvraedi/a.h", '#include "frame/b.h"'),
    ("frame/a.cc", '#include "seres/b.h"'),
    ("frame/a.cc", '#include "dispatch/b.h"'),
    ("seres/a.h", '#include "dispatch/b.h"'),
    ("dispatch/a.cc", '#include "host/cli/b.h"'),
    ("dispatch/a.cc", "#  include  <host/cli/b.h>"),
    # sideways
    ("seres/a.cc", '#include "facturae/b.h"'),
    ("orders/a.cc", '#include "seres/b.h"'),
    ("dispatch/a.cc", '#include "reception/b.h"'),
    ("platform/qt/a.cc", '#include "platform/sqlite/b.h"'),
    # adapters and hosts know the first floor alone
    ("frame/a.cc", '#include "platform/os/b.h"'),
    ("platform/os/a.cc", '#include "frame/b.h"'),
    ("host/cli/a.cc", '#include "frame/b.h"'),
    ("host/cli/a.cc", '#include "dispatch/b.h"'),
    ("platform/os/a.cc", '#include "host/cli/b.h"'),
    ("frame/a.cc", '#include "tests/b.h"'),
    # more than the standard library
    ("include/kvraedi/a.h", "#include <sqlite3.h>"),
    ("frame/a.cc", "#include <sys/stat.h>"),
    ("seres/a.cc", "#include <QString>"),
    ("dispatch/a.cc", '#include "sqlite3.h"'),
    # what cannot be judged
    ("frame/a.cc", "#include CABECERA"),
    ("other/a.cc", "#include <vector>"),
]


def check(tree):
    """Runs the check over a tree given as {file: text}; gives back its exit code and complaints."""
    with tempfile.TemporaryDirectory() as folder:
        for name, text in tree.items():
            path = pathlib.Path(folder, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        run = subprocess.run(
            [sys.executable, CHECK, folder], capture_output=True, text=True, check=False
        )
        return run.returncode, run.stderr


class Arquitectura(unittest.TestCase):
    def test_allowed(self):
        for file, line in ALLOWED:
            with self.subTest(file=file, line=line):
                self.assertEqual(check({file: f"#pragma once\n{line}\n"}), (0, ""))

    def test_forbidden(self):
        for file, line in FORBIDDEN:
            with self.subTest(file=file, line=line):
                code, complaint = check({file: f"#pragma once\n{line}\n"})
                self.assertEqual(code, 1)
                self.assertIn(file, complaint)

    def test_relative_include_is_judged_by_its_target(self):
        tree = {"frame/a.cc": '#include "../dispatch/b.h"\n', "dispatch/b.h": "#pragma once\n"}
        code, complaint = check(tree)
        self.assertEqual(code, 1)
        self.assertIn("frame/a.cc:1", complaint)

    def test_empty_tree_is_a_fault(self):
        self.assertEqual(check({})[0], 1)


if __name__ == "__main__":
    unittest.main()
