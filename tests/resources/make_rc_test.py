"""What make_rc.py says about faulty texts, and what it writes for sound ones."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

MAKE_RC = Path(__file__).resolve().parents[2] / "resources" / "make_rc.py"
HEADER = "#define IDS_PLAIN 0xF001 // A remark with %d in it.\n#define IDS_FORMAT 0xF002 // %d; a format.\n"
SOUND = 'IDS_PLAIN = He said: "C:\\\\x"\\n\\tnext\\s\nIDS_FORMAT = %d of 100%%\n'


class MakeRc(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def run_on(self, english, header=HEADER, chinese=SOUND, extra=None):
        for name, text in {"ids.h": header, "en.txt": english, "zh-Hans.txt": chinese, **(extra or {})}.items():
            data = text if isinstance(text, bytes) else text.encode()
            (self.folder / name).write_bytes(data)
        options = ["--header", "ids.h", "--texts", ".", "--rc", "out.rc", "--cpp", "out.inc", "--ids", "ids.inc"]
        return subprocess.run([sys.executable, MAKE_RC, *options], cwd=self.folder, capture_output=True, text=True)

    def test_sound_texts(self):
        done = self.run_on("\n# remark\r\n" + SOUND.replace(" = ", "="))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(
            (self.folder / "out.inc").read_text(),
            '{0xF001, "He said: \\"C:\\\\x\\"\\n\\tnext "},\n{0xF002, "%d of 100%%"},\n',
        )
        self.assertIn('  IDS_PLAIN "He said: ""C:\\\\x""\\n\\tnext "\n', (self.folder / "out.rc").read_text())
        self.assertEqual(
            (self.folder / "ids.inc").read_text(), '{0xF001, "IDS_PLAIN", ""},\n{0xF002, "IDS_FORMAT", "%d"},\n'
        )

    def test_faulty_texts(self):
        plain = "IDS_PLAIN = x\n"
        for english, line, complaint in (
            (plain, 2, "IDS_FORMAT is missing"),
            (SOUND + plain, 3, "IDS_PLAIN stands here for the second time"),
            (SOUND + "IDS_OTHER = x", 3, "IDS_OTHER isn't a string"),
            (SOUND + "IDS_PLAIN", 3, "expected NAME = text"),
            (plain + "IDS_FORMAT = none", 2, "expected %d"),
            (plain + "IDS_FORMAT = %s", 2, "expected %d"),
            (plain + "IDS_FORMAT = %d and %d", 2, "expected %d"),
            (SOUND.replace("next", "%d"), 1, "expected none"),
            (plain + "IDS_FORMAT = %d \\q", 2, "unknown escape \\q"),
            (plain + "IDS_FORMAT = %d \\", 2, "unknown escape \\"),
            (plain + "IDS_FORMAT =", 2, "is empty"),
            (plain + "IDS_FORMAT = %d \x01", 2, "U+0001"),
            (plain + "IDS_FORMAT = %d \U0001f600", 2, "U+1F600"),
            (plain + "IDS_FORMAT = %d 票", 2, "cp1252 lacks"),
            (SOUND.encode() + b"\xff", 3, "isn't UTF-8"),
        ):
            with self.subTest(complaint=complaint, english=english):
                done = self.run_on(english)
                self.assertEqual(done.returncode, 1)
                self.assertRegex(done.stderr, f"^en.txt:{line}: [^\n]*")
                self.assertIn(complaint, done.stderr)
                self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
                self.assertFalse((self.folder / "out.rc").exists(), "nothing is written")

    def test_faulty_sets(self):
        for changes, complaint in (
            ({"header": HEADER + "#define IDS_PLAIN 0xF003\n"}, "ids.h:3: IDS_PLAIN is defined twice"),
            ({"header": HEADER + "#define IDS_THIRD 0xF001\n"}, "ids.h:3: IDS_THIRD has the number of IDS_PLAIN"),
            ({"header": HEADER + "#define IDS_THIRD 12\n"}, "ids.h:3: expected #define NAME 0xNUMBER"),
            ({"extra": {"xx.txt": SOUND}}, "xx.txt:1: make_rc.py doesn't list this language"),
        ):
            with self.subTest(complaint=complaint):
                done = self.run_on(SOUND, **changes)
                self.assertEqual((done.returncode, done.stderr.strip()), (1, complaint))


if __name__ == "__main__":
    unittest.main()
