"""quibconv from the outside: the built program, real files, real pipes, a real shell."""

import json
import os
import pathlib
import pty
import re
import shutil
import stat
import subprocess
import sys
import tempfile
import time
import unittest

SOURCE = pathlib.Path(os.environ["QUIB_SOURCE_DIR"])
SAMPLES = SOURCE / "samples"
DECKS = SOURCE / "tests" / "data" / "decks"
STACK = b"Spanish\r\n" + b"Animals".ljust(64) + b"\r\ndog  \r\nperro  \r\n"
PROGRAM = ""


class QuibconvTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_it(self, *arguments, expect=0, **options):
        result = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, timeout=60,
                                cwd=self.folder, check=False, **options)
        self.assertEqual(result.returncode, expect, result)
        return result

    def put(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        return path


class Conversions(QuibconvTest):
    def test_the_samples_go_through_every_format_and_come_back(self):
        for sample in sorted(SAMPLES.glob("*.QBC")):
            for extension in ("kvtml", "txt"):
                with self.subTest(sample=sample.name, extension=extension):
                    there, back = self.folder / f"x.{extension}", self.folder / "back.QBC"
                    self.run_it("convert", "--force", "--strict", sample, there)
                    self.run_it("convert", "--force", "--strict", there, back)
                    self.assertEqual(back.read_bytes(), sample.read_bytes())
            marked = sample.read_bytes().startswith(b"\xEF\xBB\xBF")
            text = sample.read_bytes().decode("utf-8-sig" if marked else "cp1252")
            header = text.split("\r\n")[:2]
            self.run_it("convert", "--force", sample, "x.csv")
            self.run_it("convert", "--force", "x.csv", "back.QBC", "--topic", header[0],
                        "--description", header[1].rstrip())
            self.assertEqual((self.folder / "back.QBC").read_bytes(), sample.read_bytes())

    def test_media_go_along(self):
        (self.folder / "out").mkdir()
        self.run_it("convert", "--media", "copy", SAMPLES / "flags.QBC", "out/flags.QBC")
        self.assertEqual((self.folder / "out" / "flags.QBC").read_bytes(),
                         (SAMPLES / "flags.QBC").read_bytes())
        self.assertEqual(len(list((self.folder / "out").iterdir())), 33)
        self.assertEqual((self.folder / "out" / "france.wav").read_bytes(),
                         (SAMPLES / "france.wav").read_bytes())
        self.assertEqual(self.run_it("check", "out").stdout,
                         b"1 file checked: 1 clean, 0 with findings (0), 0 unusable\n")

    def test_media_that_are_left_say_so(self):
        self.put("deck/words.csv", b"Front,Back,Front picture,Back picture\n"
                                   b"a,b,../secret.jpg,dog.jpg\nc,d,none.jpg,file:///etc/hostname\n")
        self.put("secret.jpg", b"secret")
        self.put("deck/dog.jpg", b"dog")
        (self.folder / "out").mkdir()
        result = self.run_it("convert", "--media", "copy", "deck/words.csv", "out/words.kvtml", expect=1)
        self.assertEqual(result.stdout, b"out/words.kvtml: 2 cards\n1 picture or sound copied\n")
        self.assertEqual(result.stderr.count(b"not copied"), 3)
        self.assertEqual(sorted(os.listdir(self.folder / "out")), ["dog.jpg", "words.kvtml"])
        self.run_it("convert", "--strict", "--force", "--media", "copy", "deck/words.csv", "out/x.kvtml",
                    expect=1)
        self.assertFalse((self.folder / "out" / "x.kvtml").exists())

    def test_an_existing_file_stays_without_force(self):
        old = self.put("words.QBC", b"old")
        self.put("words.csv", b"a,b\n")
        result = self.run_it("convert", "words.csv", "words.QBC", expect=2)
        self.assertIn(b"--force replaces it", result.stderr)
        self.assertEqual(old.read_bytes(), b"old")
        self.run_it("convert", "--force", "words.csv", "words.QBC")
        self.assertNotEqual(old.read_bytes(), b"old")
        self.assertEqual(sorted(os.listdir(self.folder)), ["words.QBC", "words.csv"])

    def test_a_file_whose_letter_case_differs_is_the_same_file(self):
        old = self.put("WORDS.QBC", b"old")
        self.put("words.csv", b"a,b\n")
        self.run_it("convert", "words.csv", "words.QBC", expect=2)
        self.assertEqual(old.read_bytes(), b"old")

    def test_the_mode_of_a_replaced_file_and_links_stay(self):
        target = self.put("real.QBC", b"old")
        target.chmod(0o640)
        (self.folder / "link.QBC").symlink_to("real.QBC")
        self.put("words.csv", b"a,b\n")
        self.run_it("convert", "--force", "words.csv", "link.QBC")
        self.assertTrue((self.folder / "link.QBC").is_symlink())
        self.assertEqual(stat.S_IMODE(target.stat().st_mode), 0o640)
        self.assertTrue(target.read_bytes().startswith(b"General\r\n"))

    def test_what_cannot_be_written_is_told_and_leaves_nothing(self):
        self.put("words.csv", b"a,b\n")
        result = self.run_it("convert", "words.csv", "none/words.QBC", expect=2)
        self.assertIn(b"Path not found", result.stderr)
        (self.folder / "folder.QBC").mkdir()
        self.run_it("convert", "--force", "words.csv", "folder.QBC", expect=2)
        self.assertEqual(sorted(os.listdir(self.folder)), ["folder.QBC", "words.csv"])

    def test_a_file_that_may_not_grow_is_told_and_leaves_nothing(self):
        self.put("words.csv", b"house,Haus\n" * 200)
        for to in ("words.tsv", "words.QBC"):
            result = subprocess.run(["sh", "-c", 'ulimit -f 1; exec "$0" convert words.csv "$1"', PROGRAM, to],
                                    capture_output=True, timeout=60, cwd=self.folder, check=False)
            self.assertEqual(result.returncode, 2, result)
            self.assertIn(b"is not written: Disk full", result.stderr)
            self.assertEqual(os.listdir(self.folder), ["words.csv"])

    def test_pipes(self):
        result = self.run_it("convert", "--from", "csv", "--to", "qbc", "--topic", "T", "-", "-",
                             input=b"a,b\n")
        self.assertEqual(result.stdout, b"T\r\n" + b" " * 64 + b"\r\na  \r\nb  \r\n")
        self.assertEqual(self.run_it("show", "--from", "csv", "-", input=b"a,b\n").stdout,
                         b"#  Front  Back\n1  a      b\n")

    def test_a_full_output_is_an_error(self):
        path = self.put("x.QBC", STACK)
        with open("/dev/full", "wb") as full:
            result = subprocess.run([PROGRAM, "show", path], stdout=full, stderr=subprocess.PIPE,
                                    timeout=60, check=False)
        self.assertEqual(result.returncode, 2)
        self.assertIn(b"cannot be written", result.stderr)

    def test_names_that_are_no_utf8(self):
        name = os.fsencode(self.folder) + b"/w\xFFrds.csv"
        with open(name, "wb") as file:
            file.write(b"a,b\n")
        result = subprocess.run([PROGRAM, "convert", name, name + b".QBC"], capture_output=True,
                                timeout=60, check=False)
        self.assertEqual(result.returncode, 0, result)
        self.assertTrue(os.path.exists(name + b".QBC"))

    def test_decks_of_other_programs_become_clean_stacks(self):
        for deck in sorted(DECKS.iterdir()):
            with self.subTest(deck=deck.name):
                self.run_it("convert", "--force", deck, "deck.QBC")
                media = b".wav" in (self.folder / "deck.QBC").read_bytes()
                again = self.run_it("check", "--json", "deck.QBC", expect=1 if media else 0)
                kinds = {finding["kind"] for finding in json.loads(again.stdout)["files"][0]["findings"]}
                self.assertLessEqual(kinds, {"missing-media"})


class Checks(QuibconvTest):
    def test_exit_status_and_machine_report(self):
        self.put("clean.QBC", STACK)
        self.put("odd.QBC", STACK + b"2^^10  \r\nb  \r\n")
        self.put("bad.QBC", b"x")
        self.run_it("check", "clean.QBC")
        self.run_it("check", "clean.QBC", "odd.QBC", expect=1)
        report = json.loads(self.run_it("check", "--json", ".", expect=2).stdout)
        self.assertEqual(report["summary"], {"files": 3, "clean": 1, "with_findings": 1,
                                             "unusable": 1, "findings": 1})
        odd = next(file for file in report["files"] if file["file"] == "./odd.QBC")
        self.assertEqual(odd["findings"][0]["line"], 5)

    def test_the_samples_are_clean(self):
        self.run_it("check", SAMPLES)

    def test_a_folder_without_permission_is_told(self):
        if os.getuid() == 0 and shutil.which("setpriv") is None:
            self.skipTest("root may read everything")
        closed = self.folder / "closed"
        closed.mkdir(mode=0o000)
        self.folder.chmod(0o755)
        user = ("setpriv", "--reuid=65534", "--clear-groups") if os.getuid() == 0 else ()
        if subprocess.run([*user, "test", "-x", PROGRAM], check=False).returncode != 0:
            closed.chmod(0o755)
            self.skipTest("another user may not run the program here")
        result = subprocess.run([*user, PROGRAM, "check", self.folder], capture_output=True,
                                timeout=60, check=False)
        closed.chmod(0o755)
        self.assertEqual(result.returncode, 2)
        self.assertIn(b"closed: error: ", result.stderr)

    def test_devices_and_pipes_do_not_hold_it_up(self):
        os.mkfifo(self.folder / "pipe.QBC")
        self.run_it("check", "pipe.QBC", "/dev/zero", expect=2)

    def test_a_thousand_stacks_are_quick(self):
        content = (SAMPLES / "spanish-300-words.QBC").read_bytes()
        for number in range(1000):
            self.put(f"{number // 100}/{number}.QBC", content)
        start = time.monotonic()
        result = self.run_it("check", ".")
        # An optimised build takes a fifth of a second; this is for any build on a busy machine.
        self.assertLess(time.monotonic() - start, 60)
        self.assertIn(b"1000 files checked: 1000 clean", result.stdout)

    def test_long_runs_show_progress_on_a_terminal_only(self):
        content = (SAMPLES / "spanish-300-words.QBC").read_bytes()
        for number in range(300):
            self.put(f"{number}.QBC", content)
        self.assertEqual(self.run_it("check", self.folder).stderr, b"")
        ours, theirs = pty.openpty()
        process = subprocess.Popen([PROGRAM, "check", *[self.folder] * 40],
                                   stdout=subprocess.DEVNULL, stderr=theirs)
        os.close(theirs)
        seen = b""
        while not (found := re.search(rb"\r\x1b\[K\d+ of 12000 files", seen)):
            try:
                seen += os.read(ours, 4096)
            except OSError:  # the program has ended
                break
        process.terminate()
        process.wait(timeout=60)
        os.close(ours)
        self.assertTrue(found, seen)


class Companions(QuibconvTest):
    def test_there_is_no_toolkit_in_it(self):
        libraries = subprocess.run(["ldd", PROGRAM], capture_output=True, text=True, check=True).stdout
        self.assertNotRegex(libraries, "(?i)libqt|libx11|libgl")

    def test_help_of_every_command(self):
        for command in ((), ("check",), ("info",), ("show",), ("convert",)):
            self.assertIn(b"Examples:", self.run_it(*command, "--help").stdout)
        self.assertIn(b"quibconv", self.run_it("--version").stdout)
        self.assertIn(b"--help", self.run_it(expect=2).stderr)

    def test_every_option_of_the_help_is_in_the_manual_and_the_completion(self):
        manual = (SOURCE / "quibconv" / "quibconv.1").read_text(encoding="utf-8").replace("\\-", "-")
        completion = (SOURCE / "quibconv" / "quibconv.bash-completion").read_text(encoding="utf-8")
        for command in ("check", "info", "show", "convert"):
            shown = self.run_it(command, "--help").stdout.decode()
            for line in shown.splitlines():
                for word in line.replace(",", " ").split():
                    if line.startswith("  -") and word.startswith("--"):
                        self.assertIn(word[1:] if word != "--help" else "-help", manual)
                        self.assertIn(word, completion)

    def test_every_documented_exit_status_happens(self):
        manual = (SOURCE / "quibconv" / "quibconv.1").read_text(encoding="utf-8")
        section = manual.split(".Sh EXIT STATUS")[1].split(".Sh")[0]
        documented = {int(code) for code in re.findall(r"^\.It (\d+)$", section, re.M)}
        for command in ((), ("check",), ("convert",)):
            words = self.run_it(*command, "--help").stdout.decode().split("Exit status:")[1]
            self.assertEqual({int(code) for code in re.findall(r"(?:^|[,;]) (\d)", words)}, documented)
        self.put("odd.QBC", STACK + b"2^^10  \r\nb  \r\n")
        self.put("clean.QBC", STACK)
        self.put("media.csv", b"Front,Back,Front sound\na,b,none.wav\n")
        happened = {
            self.run_it("check", "clean.QBC").returncode,
            self.run_it("check", "odd.QBC", expect=1).returncode,
            self.run_it("check", "none.QBC", expect=2).returncode,
            self.run_it("info", "none.QBC", expect=2).returncode,
            self.run_it("show", "none.QBC", expect=2).returncode,
            self.run_it("convert", "clean.QBC", "clean.csv").returncode,
            self.run_it("convert", "--strict", "clean.QBC", "strict.csv", expect=1).returncode,
            self.run_it("convert", "--media", "copy", "media.csv", "media.QBC", expect=1).returncode,
            self.run_it("convert", "--header", "--no-header", "clean.csv", "x.QBC", expect=2).returncode,
            self.run_it("convert", "clean.QBC", "clean.csv", expect=2).returncode}
        self.assertEqual(happened, documented)
        self.assertFalse((self.folder / "strict.csv").exists())
        self.assertTrue((self.folder / "media.QBC").exists())

    def test_a_first_row_is_a_heading_or_a_card_as_it_is_said(self):
        self.put("words.csv", b"house,Haus\ndog,Hund\n")
        self.put("named.csv", b"Back,Front\nHaus,house\n")
        self.assertEqual(self.run_it("show", "--header", "words.csv").stdout.count(b"\n"), 2)
        self.assertEqual(self.run_it("show", "words.csv").stdout.count(b"\n"), 3)
        self.assertIn(b"1  house  Haus", self.run_it("show", "named.csv").stdout)
        self.assertIn(b"1  Back   Front", self.run_it("show", "--no-header", "named.csv").stdout)

    def test_control_characters_reach_no_terminal(self):
        evil = b"\x1b]0;x\x07\xc2\x9b1m\xe2\x80\xae"
        name = b"a" + evil + b".QBC"
        self.put(os.fsdecode(name), b"T" + evil + b"\r\n" + evil + b"\r\n" + evil +
                 b"x^^ " + evil + b".wav \r\nb  \r\n")
        table = os.fsdecode(b"t" + evil + b".csv")
        self.put(table, b"Front,Back,Front sound\n" + evil + b",b,../" + evil + b".wav\n")
        for arguments in (("check", "."), ("check", name), ("info", name), ("show", name, table),
                          ("check", "--json", name), ("info", "--json", name),
                          ("convert", "--force", "--media", "copy", table, b"out" + evil + b".kvtml"),
                          ("convert", name, b"none" + evil + b"/x.csv"), ("check", "--from", evil, name),
                          (evil,), ("show", "--encoding", evil, name), ("check", b"none" + evil)):
            result = subprocess.run([PROGRAM, *arguments], capture_output=True, timeout=60,
                                    cwd=self.folder, check=False)
            with self.subTest(arguments=arguments):
                self.assertTrue(result.stdout + result.stderr)
                self.assertNotRegex((result.stdout + result.stderr).decode(),
                                    "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202a-\u202e\u2066-\u2069]")

    def test_too_little_memory_is_told(self):
        self.put("words.csv", b"house,Haus\n" * 2_000_000)
        result = subprocess.run(["sh", "-c", 'ulimit -v 80000; exec "$0" convert words.csv words.tsv', PROGRAM],
                                capture_output=True, timeout=60, cwd=self.folder, check=False)
        self.assertEqual(result.returncode, 2, result)
        self.assertIn(b"Out of memory", result.stderr)
        self.assertEqual(os.listdir(self.folder), ["words.csv"])

    @unittest.skipUnless(shutil.which("mandoc"), "mandoc is not installed")
    def test_the_manual_page_is_well_formed(self):
        result = subprocess.run(["mandoc", "-T", "lint", SOURCE / "quibconv" / "quibconv.1"],
                                capture_output=True, text=True, check=False)
        self.assertEqual(result.stdout + result.stderr, "")

    def complete(self, *words):
        """What bash would offer for the last of the words."""
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _quibconv; '
                  'printf "%s\\n" "${COMPREPLY[@]}"; complete -p quibconv >&2')
        result = subprocess.run(["bash", "--norc", "-c", script, "bash",
                                 SOURCE / "quibconv" / "quibconv.bash-completion", "quibconv", *words],
                                capture_output=True, text=True, cwd=self.folder, timeout=60, check=True)
        self.assertIn("-F _quibconv quibconv", result.stderr)
        return result.stdout.split("\n")[:-1]

    def test_completion(self):
        self.put("two words.QBC", b"")
        self.put("other.csv", b"")
        self.assertEqual(self.complete("c"), ["check", "convert"])
        self.assertEqual(self.complete("convert", "--to-"),
                         ["--to-encoding", "--to-separator", "--to-header"])
        self.assertEqual(self.complete("convert", "--from", "k"), ["kvtml"])
        self.assertEqual(self.complete("convert", "--separator", "s"), ["semicolon", "space"])
        self.assertEqual(self.complete("check", "--js"), ["--json"])
        self.assertEqual(self.complete("check", "t"), ["two words.QBC"])
        self.assertEqual(sorted(self.complete("convert", "")), ["other.csv", "two words.QBC"])


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
