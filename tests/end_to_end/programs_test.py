"""The built programs as a user runs them: over loopback TCP and pseudo terminals, and on the command line."""

import os
import pathlib
import pty
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BIN = pathlib.Path(sys.argv.pop(1)).resolve()
HOTEL = ROOT / "examples" / "hotel.tvk"


def ctl(*arguments, status=0, password="1234", **environment):
    run = subprocess.run([BIN / "tarvokctl", *map(str, arguments)], capture_output=True, timeout=120,
                         env={**os.environ, "TARVOK_PASSWORD": password, **environment})
    text = run.stdout.decode("latin-1"), run.stderr.decode("latin-1")
    assert run.returncode == status, (arguments, run.returncode, text)
    return text


class Programs(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.work = pathlib.Path(folder.name)

    def exchange(self, *arguments):
        """Starts a practice exchange and returns its addresses by name."""
        process = subprocess.Popen([BIN / "tarvok-exchange", "--store", self.work / "exchange", *map(str, arguments)],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(process.communicate)
        self.addCleanup(process.terminate)
        ready = process.stdout.readline().split()
        self.assertEqual(ready[:1], ["ready"], ready)
        return dict(word.split("=", 1) for word in ready[1:])

    def test_a_terminal_that_cannot_be_made_ends_the_exchange(self):
        for option in ("--serial", "--modem"):
            link = self.work / "no" / "link"
            run = subprocess.run([BIN / "tarvok-exchange", "--version", "110", "--store", self.work / "exchange",
                                  option, link], capture_output=True, timeout=60, text=True)
            self.assertEqual((run.returncode, run.stdout, run.stderr.count("\n")), (1, "", 1), run.stderr)
            self.assertIn(str(link), run.stderr)

    def test_one_store_one_exchange_and_a_lost_terminal_writes_it(self):
        folder = self.work / "exchange"
        command = [BIN / "tarvok-exchange", "--version", "110", "--store", folder, "--lan", "0"]
        # Whoever runs the tests with nohup has its children ignore the signal.
        with subprocess.Popen(command, stdout=subprocess.PIPE,
                              preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_DFL)) as first:
            first.stdout.readline()
            second = subprocess.run(command, capture_output=True, timeout=60)
            self.assertEqual((second.returncode, second.stderr.count(b"\n")), (1, 1))
            first.send_signal(signal.SIGHUP)
        self.assertEqual(first.returncode, 0)
        self.assertTrue((folder / "mode").exists())

    def wait_for(self, path, content=None):
        """Waits for a file: the exchange writes it shortly after its reply."""
        for _ in range(200):
            written = path.read_bytes().strip() if path.exists() else b""
            if written and content in (None, written):
                return
            time.sleep(0.05)
        self.fail(f"{path.name} was not written")

    def project(self, **keys):
        path = self.work / "project.tvk"
        path.write_bytes(HOTEL.read_bytes())
        for key, value in keys.items():
            ctl("set", path, "Chk_Tarvok", key, value)
        return path

    def project_over(self, by, name, *options):
        """Creates a project that connects to an exchange of its own."""
        host, port = self.exchange("--version", 110, "--password", 1234, f"--{name}", 0, *options)[name].rsplit(":", 1)
        return self.project(By=by, IPHost=host, IPPort=port)

    def transfer(self, project, *options):
        """Sends the project and loads it back; both must have the same images."""
        log = self.work / "send.log"
        out, _ = ctl("send", project, "--log", log, *options)
        self.assertIn("Sending All Data Config Finished !!!", out)
        self.assertTrue(log.read_bytes().startswith(b"Send Config History...\r\n"))
        loaded = self.work / "loaded.tvk"
        ctl("load", loaded, "--using", project, "--log", log, "--force", *options, TMPDIR=self.work)
        # Holidays come back as different text, and blank rows of the route map do not; the rest is unchanged.
        for name, source in (("sent", project), ("got", loaded)):
            ctl("encode", source, "--all", "--version", 110, "-o", self.work / name)
        for image in sorted((self.work / "sent").iterdir()):
            if image.name not in ("26.bin", "43.bin"):
                self.assertEqual(image.read_bytes(), (self.work / "got" / image.name).read_bytes(), image.name)

    def test_tcp_transports(self):
        addresses = self.exchange("--version", 110, "--password", 1234, "--lan", 0, "--lan-serial", 0, "--server", 0)
        for by, name in ((4, "lan"), (3, "lan-serial"), (0, "server")):
            host, port = addresses[name].rsplit(":", 1)
            self.transfer(self.project(By=by, IPHost=host, IPPort=port))
        self.wait_for(self.work / "exchange" / "mode", b"0")
        self.assertEqual((self.work / "exchange" / "04.bin").stat().st_size, 27500)

    def test_serial_and_modem(self):
        line, modem = self.work / "line", self.work / "modem"
        self.exchange("--version", 110, "--password", 1234, "--serial", line, "--modem", modem)
        self.transfer(self.project(By=1), "--device", line)
        self.transfer(self.project(By=2, Tel="0123"), "--device", os.path.relpath(modem))

    def test_two_loads_at_once(self):
        work = self.work
        runs = []
        for mark in ("one", "two"):
            self.work = work / mark
            self.work.mkdir()
            project = self.project_over(4, "lan")
            ctl("set", project, "Name", "001", mark)
            ctl("send", project, "--log", self.work / "l")
            runs.append((self.work / "loaded.tvk", mark, [
                BIN / "tarvokctl", "load", self.work / "loaded.tvk", "--using", project, "--log", self.work / "l"]))
        temporary = work / "tmp"
        temporary.mkdir()
        environment = {**os.environ, "TARVOK_PASSWORD": "1234", "TMPDIR": str(temporary)}
        started = [subprocess.Popen(command, stdout=subprocess.DEVNULL, env=environment) for _, _, command in runs]
        self.assertEqual([run.wait(120) for run in started], [0, 0])
        for loaded, mark, _ in runs:
            self.assertEqual(ctl("get", loaded, "Name", "001")[0], mark + "\n")
        self.assertEqual(list(temporary.iterdir()), [])

    def test_passwords_are_shown_only_on_request(self):
        project, other = self.project(), self.work / "other.tvk"
        other.write_bytes(project.read_bytes())
        ctl("set", other, "Account", "001", "710510|2468|132|4|1|7200")
        self.assertEqual("Password: (set) \u2192 (changed)\n".encode().decode("latin-1") in
                         ctl("diff", project, other, status=1)[0], True)
        self.assertIn("2468", ctl("diff", project, other, "--show-secrets", status=1)[0])

    def test_where_the_system_file_is_found(self):
        program, share, mine, machine = (self.work / "root" / name for name in ("bin", "share", "mine", "machine"))
        program.mkdir(parents=True)
        moved = shutil.copy(BIN / "tarvokctl", program)
        environment = {**os.environ, "XDG_DATA_HOME": str(mine), "XDG_DATA_DIRS": str(machine)}

        def run(*arguments):
            done = subprocess.run([moved, *arguments], capture_output=True, text=True, env=environment, timeout=60)
            return done.returncode, done.stdout + done.stderr

        project = self.work / "new.tvk"
        self.assertIn("system.tvs (not found)", run("--version")[1])
        self.assertEqual(run("new", project)[0], 1)
        project.write_bytes(HOTEL.read_bytes())
        status, reason = run("edit", project, "frmBillingMode", "--script", os.devnull)
        self.assertEqual((status, "Cannot find system file !!" in reason, reason.count("\n")), (1, True, 1))
        for folder in (share / "tarvok", machine / "tarvok", mine / "tarvok", program):
            folder.mkdir(parents=True, exist_ok=True)
            found = pathlib.Path(shutil.copy(BIN / "system.tvs", folder))
            self.assertIn(f"\nSystem file: {found}\n", run("--version")[1])
            self.assertEqual(run("new", project, "--force"), (0, ""))
        kept = [path.read_bytes() for path in mine.rglob("*") if path.is_file() and path.name != "system.tvs"]
        self.assertIn(HOTEL.read_bytes(), kept)

    def test_side_sessions(self):
        project = self.project_over(4, "lan")
        log = ("--log", self.work / "l")
        for part, file in (("--link-table", "37.bin"), ("--ip", "44.bin"), ("--minibar", "minibar.bin")):
            ctl("send", project, part, *log)
            self.wait_for(self.work / "exchange" / file)
        self.assertIn("for compare", ctl("send", project, "--compare", *log)[0])
        ctl("load", self.work / "bar.tvk", "--minibar", "--using", project, *log, TMPDIR=self.work)
        # An editor ends a mini bar row with a pipe, a load does not.
        self.assertEqual(ctl("get", self.work / "bar.tvk", "MiniBar")[0], ctl("get", project, "MiniBar")[0].replace("|\n", "\n"))
        (self.work / "tbl10.bil").write_bytes(b"b" * 1000)
        self.assertIn("Sector ==> 1", ctl("send-billing", project, self.work, *log)[0])
        self.assertIn("Ping reply 0.0", ctl("ping", project, *log)[0])

    def test_failures_have_one_line_and_a_status(self):
        project = self.project_over(4, "lan")
        rubbish = self.work / "rubbish"
        rubbish.write_bytes(bytes(range(256)) * 40)
        log = ("--log", self.work / "l")
        cases = [
            (1, "Password incorrect", ("send", project, *log), {"password": "999"}),
            (1, "TARVOK_PASSWORD", ("send", project, *log), {"password": "12ab"}),
            (1, "File not found or File not correct.", ("send", rubbish, *log), {}),
            (1, "File not found or File not correct.", ("get", self.work / "none", "Name"), {}),
            (1, "has 400 bytes", ("decode", rubbish, "--section", 1, "--version", 110, "--into", self.work / "n"), {}),
            (1, "exists", ("new", project), {}),
            (1, "exists", ("load", project, "--using", project, *log), {}),
            (2, "--version", ("sections", "--version", 111), {}),
            (2, "", ("encode", project, "--version", 110, "-o", self.work / "o"), {}),
        ]
        fifo, secret = self.work / "fifo", self.work / "secret"
        os.mkfifo(fifo)
        secret.write_text("1234")
        one = ("--section", 2, "--version", 110)
        cases += [
            # Output paths that must not be written to.
            (2, "project itself", ("encode", project, *one, "-o", project), {}),
            (1, "regular", ("encode", project, *one, "-o", fifo), {}),
            (1, "regular", ("new", fifo, "--force"), {}),
            (1, "regular", ("load", self.work, "--force", "--using", project, *log), {}),
            (1, "No such", ("load", self.work / "no" / "o", "--using", project, *log), {}),
            (1, "/proc: ", ("load", self.work / "o", "--using", project, *log), {"TMPDIR": "/proc"}),
            (2, "--log", ("send", project, "--log", project), {}),
            (2, "--log", ("send", project, "--password-file", secret, "--log", secret), {}),
            # Texts must not be empty, and each letter must have a byte.
            (2, "--device", ("ping", project, "--device", ""), {}),
            (2, "KEY", ("get", project, "Name", ""), {}),
            (2, "VALUE", ("set", project, "Name", "001", "\u03a9"), {}),
            (2, "VALUE", ("set", project, "Name", "001", b"\xff".decode("utf-8", "surrogateescape")), {}),
            (2, "command \"nonsense\"", ("nonsense",), {}),
            (2, "option \"--nonsense\"", ("--nonsense",), {}),
            (2, "0x6e", ("sections", "--version", "0x6e"), {}),
        ]
        before = project.read_bytes()
        for status, reason, arguments, more in cases:
            with self.subTest(arguments=arguments):
                _, error = ctl(*arguments, status=status, **more)
                self.assertIn(reason, error)
                if status == 1:
                    self.assertEqual(error.count("\n"), 1)
        self.assertEqual(project.read_bytes(), before)
        self.assertFalse((self.work / "n").exists())
        self.assertEqual(secret.read_text(), "1234")
        with open("/dev/full", "wb") as full:
            run = subprocess.run([BIN / "tarvokctl", "get", project, "Name"], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual((run.returncode, run.stderr.count(b"\n")), (1, 1))
        project = self.project(By=1)
        _, error = ctl("send", project, *log, "--device", self.work / "no-port", status=1)
        self.assertIn("Initial COM Port failed", error)

    def test_a_failed_session_has_one_line_and_no_pace(self):
        log = ("--log", self.work / "l")
        slow = self.project_over(4, "lan", "--bps", 115200)
        ctl("set", slow, "Assign", "001", "101|300|001|F|F")  # fails after some seconds
        reason = "tarvokctl: Send Assign Number failed (RE)\n"
        self.assertEqual(ctl("send", slow, *log, status=1)[1], reason)
        written, shown = self.on_terminal("send", slow, *log, status=1)
        self.assertIn("bytes/s", written)
        self.assertRegex(shown, "Failed\nsection Assign.*\nbox: Send Assign")
        self.assertNotRegex(shown, "bytes|left")

    def test_a_session_on_a_terminal_draws_its_bar_between_the_lines(self):
        project = self.project_over(4, "lan", "--bps", 460800)
        log = ("--log", self.work / "l")
        written, shown = self.on_terminal("send", project, *log)
        bars = re.findall(r"(.{4})\[#* *\] \d+ %, \d:\d\d", written, re.DOTALL)
        self.assertGreater(len(bars), 40)
        for before in bars:  # never after an unfinished line
            self.assertTrue(before.endswith(("\n", "\r\x1b[K")), before)
        # What remains is the same as in a file, except for the times.
        rate = r"(Average Transfer Rate :|tarvokctl: [\d,]+ bytes in).*\n"
        self.assertEqual(re.sub(rate, "", shown), re.sub(rate, "", ctl("send", project, *log)[0]))

    def test_notes_come_before_the_reason(self):
        cut = self.project_over(4, "lan", "--faults", "hangup-after=60")
        _, error = ctl("load", self.work / "o", "--using", cut, "--log", self.work / "l", status=1, TMPDIR=self.work)
        self.assertRegex(error, r"\Anote: The connection was closed .*\ntarvokctl: Please checked your connection .*\n\Z")
        self.assertFalse((self.work / "o").exists())

    def test_a_note_has_a_line_of_its_own_on_a_terminal(self):
        cut = self.project_over(4, "lan", "--faults", "hangup-after=60")
        _, shown = self.on_terminal("load", self.work / "o", "--using", cut, "--log", self.work / "l", status=1, TMPDIR=self.work)
        self.assertRegex(shown, r"\.\.\.\nnote: The connection was closed")

    def on_terminal(self, *arguments, status=0, **environment):
        """What a session writes to the terminal, and what remains there after it has removed its bars."""
        master, terminal = pty.openpty()
        process = subprocess.Popen([BIN / "tarvokctl", *map(str, arguments)], stdout=terminal, stderr=subprocess.STDOUT,
                                   env={**os.environ, "TARVOK_PASSWORD": "1234", **environment})
        os.close(terminal)
        written = b""
        try:
            while part := os.read(master, 65536):
                written += part
        except OSError:  # the other end is closed
            pass
        os.close(master)
        self.assertEqual(process.wait(timeout=60), status)
        text = written.decode("latin-1").replace("\r\n", "\n")
        return text, re.sub(r".*\r\x1b\[K", "", text)

    def test_edit_scripts(self):
        project = self.project()
        script = self.work / "script.txt"

        def edit(form, lines, status=0):
            script.write_text(lines, encoding="utf-8")
            return ctl("edit", project, form, "--script", script, status=status)

        out, _ = edit("frmMiniBar", 'go 1 "Name"\npress Delete\ntype Caf\u00e9\nvalue txtMask\nclick cmdOK\n')
        self.assertEqual(out, "Caf\u00e9\n".encode().decode("latin-1"))
        self.assertEqual(ctl("get", project, "MiniBar", "001")[0], "Caf\u00e9|350|\n".encode().decode("latin-1"))
        saved = project.read_bytes()
        asked, _ = edit("frmMiniBar", "# leave\n\ngo 1 1\ntype x\nanswer No\nclick cmdCancel\n")
        self.assertTrue(asked.startswith("ask: Data was change") and asked.endswith("-> No\n"), asked)
        for lines in ("go 1 1\ntype 9\n", "go 513 1\n", "go 1 Nowhere\n", "click cmdNothing\n", "press Home\n",
                      "frobnicate\n", "answer Perhaps\n", "set cmdOK 1\n"):
            _, reason = edit("frmMiniBar", lines, status=0 if "type" in lines else 2)
            self.assertEqual(reason.count("\n"), 0 if "type" in lines else 1, reason)
        self.assertIn("unknown form", edit("frmNothing", "", status=2)[1])
        self.assertIn("cannot read", ctl("edit", project, "frmMiniBar", "--script", self.work, status=1)[1])
        for unkept in (b"Caf\xe9", "\u6f22Tea".encode()):  # not UTF-8; a letter that the page lacks
            script.write_bytes(b"go 1 1\ntype " + unkept + b"\nclick cmdOK\n")
            self.assertIn("line 2", ctl("edit", project, "frmMiniBar", "--script", script, status=2)[1])
        for word, status in (("maybe", 2), ("2", 2), ("Off", 0), ("1", 0)):
            reason = edit("frmPABXMode", f"set Check1(1) {word}\n", status=status)[1]
            self.assertIn(word if status else "", reason)
        self.assertEqual(project.read_bytes(), saved)
        repeated = "answer No\ngo 1 1\npaste 1234\\n1234\nclick cmdOK\n"
        self.assertIn("not saved", edit("frmAccount", repeated, status=1)[1])
        self.assertEqual(project.read_bytes(), saved)
        # A cell that its column does not accept is left out and reported; the others are saved.
        self.assertIn("row 2, Name", edit("frmMiniBar", 'go 1 "Name"\npaste Tea\\n' + 30 * "x" + "\nclick cmdOK\n")[1])
        self.assertEqual(ctl("get", project, "MiniBar", "001")[0], "Tea|350|\n")

    def test_new_project_encodes_for_every_version(self):
        project = self.work / "new.tvk"
        ctl("new", project)
        self.assertEqual(ctl("get", project, "Port_Def", "Max")[0], "500\n")
        self.assertNotIn(b"[Country]", project.read_bytes())
        for version in range(100, 111):
            ctl("encode", project, "--all", "--version", version, "-o", self.work / str(version))
            if version != 101:  # receives the short route map and sends the long one
                ctl("decode", self.work / str(version), "--all", "--version", version, "--into", self.work / "back.tvk")

    def test_example_is_what_its_source_says(self):
        subprocess.run([sys.executable, ROOT / "examples" / "make_hotel.py", "--check"], check=True)


if __name__ == "__main__":
    unittest.main()
