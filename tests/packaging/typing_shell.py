"""A shell on a terminal of its own, at which a test types."""
import os
import pty
import re
import select
import signal
import time

PROMPT = "ready> "


class TypingShell:
    def __init__(self, command, folder, setup):
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.chdir(folder)
            environment = {"PATH": os.environ["PATH"], "TERM": "dumb", "LC_ALL": "C.UTF-8", "HOME": folder,
                           "COLUMNS": "150", "LINES": "60", "HISTFILE": "/dev/null"}
            os.execvpe(command[0], command, environment)
        self.send(f"{setup}; PS1='rea''dy> '\n")
        self.read_until(PROMPT)

    def send(self, text):
        os.write(self.terminal, text.encode())

    def read_until(self, pattern, seconds=20):
        text, deadline = "", time.monotonic() + seconds
        while not re.search(pattern, text):
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([self.terminal], [], [], left)[0]:
                raise TimeoutError(f"waiting for {pattern!r}, got {text!r}")
            text += os.read(self.terminal, 65536).decode(errors="replace")
        return text

    def completed(self, line):
        """The words that stand on the line after a TAB at its end."""
        self.send(f"{line}\t\x01printf '<%s>\\n' begin \x05 'e''nd'\n")
        shown = self.read_until(r"<end>\r?\n(?:.*\n)*.*" + PROMPT)
        words = re.findall(r"^<(.*)>\r?$", shown, re.M)
        return words[words.index("begin") + 1:-1]

    def offered(self, line):
        """What a TAB at the end of the line lists (in zsh)."""
        self.send(f"{line}\t")
        shown = self.read_until(r"(?s)\n.*" + PROMPT)
        self.send("\x15: 'the ''line is gone'\n")
        return shown + self.read_until(r"the.*gone.*\n(?:.*\n)*.*" + PROMPT)

    def close(self):
        os.close(self.terminal)
        os.kill(self.pid, signal.SIGHUP)
        os.waitpid(self.pid, 0)
