# SPDX-License-Identifier: GPL-3.0-or-later
"""Each rule is given inputs that break it, and one that does not."""
import json
import pathlib
import shutil
import tempfile
import unittest

import clang_tools
import source_rules

ROOT = pathlib.Path(__file__).resolve().parent.parent


def run():
    suite = unittest.defaultTestLoader.loadTestsFromTestCase(RulesCanFail)
    return 0 if unittest.TextTestRunner().run(suite).wasSuccessful() else 1


HEAD = f"// {source_rules.LICENCE}\n"


def check(files):
    """The findings of the rules for files that begin as they should."""
    return source_rules.check({path: HEAD + text for path, text in files.items()})


class RulesCanFail(unittest.TestCase):
    def expect(self, findings, *wanted):
        self.assertEqual(len(findings), len(wanted), findings)
        for finding, words in zip(findings, wanted):
            self.assertIn(words, finding)

    def test_sound_sources_pass(self):
        self.expect(check({
            "src/base/a.h": "#include <queue>\n",
            "src/support/settings.h": '#include "base/a.h"\n',
            "src/support/settings.cpp": '#include "support/settings.h"\n',
            "src/qt/b.cpp": '#include <QWidget>\n#include "ui_b.h"\n#include "b.moc"\n#include "support/settings.h"\n',
            "tests/kit/c.h": '#include "support/settings.h"\n',
            "tests/qt/b_test.cpp": '#include <Qsci/qsciscintillabase.h>\n#include "tests/kit/c.h"\n',
        }))

    def test_toolkit(self):
        for header in ("<QString>", "<QtWidgets/QWidget>", "<Qsci/qsciscintilla.h>", "<qglobal.h>", '"ui_find.h"'):
            self.expect(check({"src/core/a.cpp": f"// text\n#include {header}\n"}), "src/core/a.cpp:3: ")
        self.expect(check({"tests/core/a_test.cpp": "#  include <QString>\n"}), "belongs to the toolkit")

    def test_include_paths(self):
        for header in ("a.h", "elsewhere/a.h"):
            self.expect(check({"src/core/a.cpp": f'#include "{header}"\n', "src/core/a.h": ""}), "is no path")

    def test_floors(self):
        names = source_rules.FLOORS
        for lower, upper in zip(names, names[1:]):
            self.expect(check({f"src/{lower}/a.h": f'#include "{upper}/b.h"\n', f"src/{upper}/b.h": ""}),
                        f"src/{lower}/a.h:2: includes src/{upper}/b.h")
        self.expect(check({"src/qt/main.cpp": '#include "tests/kit/a.h"\n', "tests/kit/a.h": ""}), "later")
        self.expect(check({"src/KVFileSystem/a.h": '#include "base/b.h"\n', "src/base/b.h": ""}),
                    "includes nothing else")
        with self.assertRaisesRegex(ValueError, "not in the list"):
            source_rules.floor_of("src/elsewhere/a.h")

    def test_circles(self):
        self.expect(check({
            "src/core/a.h": "", "src/core/a.cpp": '#include "core/a.h"\n#include "core/b.h"\n',
            "src/core/b.h": '#include "core/c.h"\n', "src/core/c.h": "", "src/core/c.cpp": '#include "core/a.h"\n',
        }), "src/core/a -> src/core/b -> src/core/c -> src/core/a")

    def test_file_length(self):
        self.expect(check({"src/core/a.cpp": "\n" * 499}))
        self.expect(check({"src/core/a.cpp": "\n" * 500}), "501 lines")
        self.expect(check({"src/frame/menu_table.cpp": "\n" * 500}))

    def test_licence(self):
        for path, text in (("src/core/a.cpp", "int a;\n"), ("tests/core/a_test.cpp", "\n" + HEAD), ("tools/a", HEAD)):
            self.expect(source_rules.check_licence({path: text}), path)
        script = f"#!/bin/sh\n# {source_rules.LICENCE}\n"
        self.expect(source_rules.check_licence({"src/core/a.h": HEAD, "tools/a": script, "CMakeLists.txt": script[10:]}))

    def lint(self, text):
        """The findings of both clang tools for a header in a project of its own."""
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder).resolve()
            for configuration in (".clang-format", ".clang-tidy"):
                shutil.copy(ROOT / configuration, root)
            (root / "src/core").mkdir(parents=True)
            files = {"src/core/a.h": text, "src/core/use.cpp": '#include "core/a.h"\n'}
            for path, content in files.items():
                (root / path).write_text(content, encoding="utf-8")
            source = str(root / "src/core/use.cpp")
            (root / "compile_commands.json").write_text(json.dumps(
                [{"directory": folder, "file": source, "command": f"c++ -std=c++20 -I{root}/src -c {source}"}]))
            first = clang_tools.check_tidy(root, files, root)
            self.assertEqual(first, clang_tools.check_tidy(root, files, root))
            return clang_tools.check_format(root, files) + first

    def test_clang_tools(self):
        good = "namespace kelvor {\n\nint OpenDoc(int number) {\n    return number + 1;\n}\n\n}  // namespace kelvor\n"
        long = "int grow(int number) {\n" + "    number += 2;\n" * 60 + "    return number;\n}\n"
        for text, *wanted in (
                (good,),
                ("int  two();\n", "not in the project's style"),
                (long, "readability-function-size"),
                ("class bad_type {};\n", "readability-identifier-naming"),
                ("class Bad {\n    int count = 0;\n};\n", "readability-identifier-naming"),
                ("namespace Bad {}\n", "readability-identifier-naming"),
                ("char* none = 0;\n", "modernize-use-nullptr"),
                ("int f(bool a) {\n    return a ? 1 : 1;\n}\n", "bugprone-branch-clone"),
                ("int f( {\n", "clang-diagnostic-error")):
            with self.subTest(text=text[:40]):
                found = self.lint(text)
                for words in wanted:
                    self.assertTrue(any(words in finding for finding in found), found)
                if not wanted:
                    self.assertEqual(found, [])
