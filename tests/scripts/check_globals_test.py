#!/usr/bin/env python3
"""What scripts/check_globals.py takes for a mutable variable and what not, and how it holds the list of those allowed."""
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
import check_globals  # noqa: E402


def names(header):
    return [name for _, name in check_globals.mutable_variables(header)]


class Declarations(unittest.TestCase):
    def test_mutable(self):
        for header, found in {
            "extern int amount;": ["amount"],
            "extern int a, *b, c[4];": ["a", "b", "c"],
            "extern const Node *node;": ["node"],
            "extern const Node *node, *const fixed;": ["node"],
            "extern std::function<void(int, char)> hook;": ["hook"],
            "extern void (*hook)(const Node *);": ["hook"],
            "extern std::array<Bucket<const Node>, size> table;": ["table"],
            "inline std::atomic<int> next{0};": ["next"],
            "thread_local int depth = 1'000;": ["depth"],
            "template <class T> struct Ranks { static void f(); private: inline static Pool<T> pool_; };": ["pool_"],
            "struct Ranks { static int latest; };": ["latest"],
            "inline int next() { static int last = 0; return ++last; }": ["last"],
            "extern struct Node *root;": ["root"],
            "alignas(64) inline int line;": ["line"],
        }.items():
            self.assertEqual(names(header), found, header)

    def test_not_mutable(self):
        for header in (
            "inline constexpr std::string_view texts[] = {\"a; extern int b;\", \"c\"};",
            "constexpr static int size = 4;",
            "extern const std::string_view text;",
            "extern const char *const text;",
            "// extern int a;\n/* inline int b; */\n#define c \\\n extern int d;",
            "constexpr auto text = R\"(extern int a; \")\";",
            "extern int length(const char *text, int from = 0, Style style = {});",
            "inline Node *next(const Node *node) { return node->next; }",
            "struct A { static A &only(); inline static const int size = 1; friend inline bool operator==(A, A); };",
            "inline A &operator<<(A &a, int b) { return a; }",
            "static_assert(sizeof(int) == 4);\nint a_static;",
            "extern template class Pool<Node>;\ninline namespace v1 { struct A { int a; }; }",
        ):
            self.assertEqual(names(header), [], header)

    def test_line(self):
        header = "/* one\n two */\nextern bool  // three\n    four;\nextern int five;\n"
        self.assertEqual(list(check_globals.mutable_variables(header)), [(4, "four"), (5, "five")])


class Allowed(unittest.TestCase):
    def check(self, header, allowed):
        with tempfile.TemporaryDirectory() as root:
            folder = Path(root, check_globals.CORE[-1])
            folder.mkdir()
            Path(root, "scripts").mkdir()
            Path(folder, "a.hpp").write_text(header)
            Path(root, "scripts/globals.allowed").write_text(allowed)
            with mock.patch("sys.argv", ["check_globals.py", root]), mock.patch("builtins.print") as printed:
                status = check_globals.main()
            return status, [call.args[0] for call in printed.call_args_list[:-1]]

    def test_list(self):
        self.assertEqual(self.check("extern int a;", "a\n"), (0, []))
        self.assertEqual(self.check("struct A;", ""), (0, []))
        status, faults = self.check("extern int a;\nextern int b;", "a\nc\n")
        self.assertEqual(status, 1)
        self.assertEqual([fault.split(": ")[1].split()[0] for fault in faults], ["b", "c"])


if __name__ == "__main__":
    unittest.main()
