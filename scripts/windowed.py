"""Starts alder-checks on a display of its own, works it as a person does, and looks at the result.

The display is Xvfb, which keeps its screen in a file; keys and the mouse come from xdotool. What the
windows show is read from the report that the program keeps (host/WindowReport.h), and what is really
painted from the screen.
"""

import os
import re
import shutil
import struct
import subprocess
import tempfile
import time
import zlib

WAIT = 20  # seconds until something has to have happened
WINDOW = re.compile(
    r'^(?P<indent> *)(?P<kind>\S+) (?P<id>-?\d+) \[(?P<place>[-\d,]+)\] "(?P<text>(?:\\.|[^"\\])*)"'
    r"(?P<state>.*)$")


class NotThere(Exception):
    """Something that should be on the screen is not."""


def missing_tools():
    return [tool for tool in ("Xvfb", "xdotool") if shutil.which(tool) is None]


class Window:
    """One line of the report."""

    def __init__(self, match, parent):
        self.kind = match["kind"]
        self.id = int(match["id"])
        self.place = tuple(int(n) for n in match["place"].split(","))
        self.text = match["text"]
        self.state = match["state"].split()
        self.parent = parent  # the text of the outer window

    def middle(self):
        left, top, right, bottom = self.place
        return (left + right) // 2, (top + bottom) // 2


class Picture:
    """The screen, a row of (red, green, blue) bytes after the other."""

    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        head = struct.unpack(">25I", data[:100])
        size, self.width, self.height, order, bits, stride, colors = (
            head[0], head[4], head[5], head[7], head[11], head[12], head[19])
        if bits != 32 or order != 0:
            raise NotThere(f"a screen of {bits} bits in order {order} is not known here")
        start = size + 12 * colors
        self.rows = []
        for y in range(self.height):
            row = data[start + y * stride:start + y * stride + 4 * self.width]
            pixels = bytearray(3 * self.width)
            pixels[0::3], pixels[1::3], pixels[2::3] = row[2::4], row[1::4], row[0::4]
            self.rows.append(bytes(pixels))

    def pixels(self, place):
        left, top, right, bottom = place
        for y in range(max(top, 0), min(bottom, self.height)):
            for x in range(max(left, 0), min(right, self.width)):
                yield tuple(self.rows[y][3 * x:3 * x + 3])

    def save(self, path, place):
        left, top, right, bottom = place
        rows = [b"\0" + self.rows[y][3 * left:3 * right] for y in range(top, bottom)]

        def chunk(name, body):
            crc = struct.pack(">I", zlib.crc32(name + body))
            return struct.pack(">I", len(body)) + name + body + crc

        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n")
            file.write(chunk(b"IHDR", struct.pack(">2I5B", right - left, bottom - top, 8, 2, 0, 0, 0)))
            file.write(chunk(b"IDAT", zlib.compress(b"".join(rows), 9)))
            file.write(chunk(b"IEND", b""))


class Screen:
    """A display with the program on it, for the length of a `with` block."""

    def __init__(self, program):
        self.program = program

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="alder-checks-")
        self.company = os.path.join(self.folder, "books")
        read, write = os.pipe()
        self.display = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1024x768x24", "-fbdir", self.folder,
             "-nolisten", "tcp", "-noreset"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise NotThere("Xvfb did not start")
        self.environment = dict(
            os.environ, DISPLAY=":" + number, LC_ALL="C", QT_QPA_PLATFORM="xcb",
            QT_SCALE_FACTOR="1", XDG_RUNTIME_DIR=self.folder,
            ALDLIB_USER_DIR=os.path.join(self.folder, "user"),
            ALDLIB_MACHINE_DIR=os.path.join(self.folder, "machine"))
        # Under the sanitizers: what the libraries beneath Qt never give back is not the program's.
        suppressions = os.path.join(self.folder, "leaks.txt")
        with open(suppressions, "w", encoding="utf-8") as file:
            file.write("leak:libdbus-1\nleak:libfontconfig\n")
        self.environment["LSAN_OPTIONS"] = f"suppressions={suppressions}:print_suppressions=0"
        self.running = None
        return self

    def __exit__(self, *_):
        if self.running is not None and self.running.poll() is None:
            self.running.kill()
            self.running.wait()
        self.display.terminate()
        self.display.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self):
        self.report = os.path.join(self.folder, "report.txt")
        if os.path.exists(self.report):
            os.remove(self.report)
        self.running = subprocess.Popen(
            [self.program, "--company", self.company, "--report", self.report], env=self.environment)

    def has_ended(self):
        """The exit status, once the program has ended by itself."""
        return self.running.wait(timeout=WAIT)

    def windows(self):
        try:
            with open(self.report, encoding="utf-8") as file:
                lines = file.read().splitlines()
        except FileNotFoundError:
            return []
        result, outer = [], ""
        for line in lines:
            match = WINDOW.match(line)
            if match:
                if not match["indent"]:
                    outer = match["text"]
                result.append(Window(match, outer))
        return result

    def report_text(self):
        with open(self.report, encoding="utf-8") as file:
            return file.read()

    def find(self, **wanted):
        """The window of those properties; waits for it."""
        return self.until(lambda: next(
            (w for w in self.windows() if all(getattr(w, k) == v for k, v in wanted.items())), None),
            f"no window with {wanted}")

    def until(self, look, complaint):
        end = time.monotonic() + WAIT
        while time.monotonic() < end:
            seen = look()
            if seen:
                return seen
            if self.running.poll() is not None:
                raise NotThere(f"{complaint}: the program has ended with {self.running.returncode}")
            time.sleep(0.05)
        text = self.report_text() if os.path.exists(self.report) else "nothing"
        raise NotThere(f"{complaint}; there is\n{text}")

    def tool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment, check=True,
                              capture_output=True, text=True).stdout

    def point_at(self, x, y):
        self.tool("mousemove", str(x), str(y))

    def click(self, window, dx=None, dy=None):
        """In the middle of the window, or so far from its left upper corner."""
        x, y = window.middle() if dx is None else (window.place[0] + dx, window.place[1] + dy)
        self.tool("mousemove", str(x), str(y), "click", "1")

    def type(self, window, text):
        self.click(window)
        self.find(id=window.id, parent=window.parent, state=["focus"])
        self.tool("key", "ctrl+a")
        self.tool("type", "--delay", "20", text)

    def key(self, *keys):
        self.tool("key", *keys)

    def picture(self):
        time.sleep(0.5)  # what was reported is painted by then
        return Picture(os.path.join(self.folder, "Xvfb_screen0"))
