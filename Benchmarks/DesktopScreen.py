"""A virtual screen of its own with a window manager, and what a benchmark asks of the programs on it."""
import ctypes, os, shutil, signal, subprocess, tempfile, time

TICKS = os.sysconf("SC_CLK_TCK")


class _Image(ctypes.Structure):
    _fields_ = [(name, ctypes.c_int) for name in ("width", "height", "xoffset", "format")] + [
        ("data", ctypes.c_void_p),
        *((name, ctypes.c_int) for name in ("order", "unit", "bit_order", "pad", "depth", "bytes_per_line")),
    ]


class Pixels:
    """Reads pixels of the whole screen, whatever window they belong to."""

    def __init__(self, display):
        x = self.x = ctypes.CDLL("libX11.so.6")
        x.XOpenDisplay.restype = ctypes.c_void_p
        x.XOpenDisplay.argtypes = [ctypes.c_char_p]
        x.XDefaultRootWindow.restype = ctypes.c_ulong
        x.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        x.XGetImage.restype = ctypes.POINTER(_Image)
        x.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong] + 2 * [ctypes.c_int] + 2 * [ctypes.c_uint] + [
            ctypes.c_ulong,
            ctypes.c_int,
        ]
        x.XDestroyImage.argtypes = [ctypes.c_void_p]
        self.display = x.XOpenDisplay(display.encode())
        self.root = x.XDefaultRootWindow(self.display)

    def rows(self, left, top, width, height):
        """The pixels of a rectangle, one bytes object a row."""
        all_planes, z_pixmap = 0xFFFFFFFF, 2
        image = self.x.XGetImage(self.display, self.root, left, top, width, height, all_planes, z_pixmap)
        stride = image.contents.bytes_per_line
        data = ctypes.string_at(image.contents.data, stride * height)
        self.x.XDestroyImage(image)
        return [data[at : at + stride] for at in range(0, len(data), stride)]


class Screen:
    """An X server, a window manager and a throw-away folder; all of it, and all that was begun, ends with it."""

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.folder = tempfile.mkdtemp(prefix="mimkins-bench-")
        self.begun = []
        runtime = f"{self.folder}/runtime"
        os.mkdir(runtime, 0o700)
        os.mkdir(f"{self.folder}/user")
        # Nothing of the real user's: neither the home folder nor the session bus.
        keep = {name: os.environ[name] for name in ("PATH", "LANG") if name in os.environ}
        self.environment = {**keep, "HOME": f"{self.folder}/user", "XDG_RUNTIME_DIR": runtime}
        reader, writer = os.pipe()
        words = ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp"]
        self.begin(words, pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("Xvfb doesn't start")
        self.environment["DISPLAY"] = f":{number}"
        self.begin(["openbox"])
        self.patiently(lambda: "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))
        self.pixels = Pixels(f":{number}")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in reversed(self.begun):
            self.end(process)
        shutil.rmtree(self.folder, ignore_errors=True)

    def begin(self, words, **more):
        log = open(f"{self.folder}/programs.log", "a")
        environment = getattr(self, "environment", None)
        process = subprocess.Popen(words, env=environment, stdout=log, stderr=log, stdin=subprocess.DEVNULL, **more)
        log.close()
        self.begun.append(process)
        return process

    def end(self, process):
        """Ends a process that was begun here, and waits for it."""
        if process in self.begun:
            self.begun.remove(process)
        if process.poll() is None:
            process.send_signal(signal.SIGTERM)
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    def ask(self, *words):
        return subprocess.run(words, env=self.environment, capture_output=True, text=True).stdout

    def patiently(self, question, seconds=20.0):
        """Asks until the answer is true, and gives it."""
        until = time.monotonic() + seconds
        while not (answer := question()):
            if time.monotonic() > until:
                with open(f"{self.folder}/programs.log") as log:
                    raise RuntimeError("it never came true; the programs' last words:\n" + log.read()[-2000:])
            time.sleep(0.05)
        return answer

    def window(self, title):
        """The id of the visible window with this title, once there is one."""
        words = ("xdotool", "search", "--onlyvisible", "--name", f"^{title}$")
        return self.patiently(lambda: self.ask(*words).split())[0]

    def place(self, window):
        """Left, top, width and height of a window."""
        answer = self.ask("xdotool", "getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in answer.split())
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def order(self):
        """The ids of all windows, the lowest first."""
        answer = self.ask("xprop", "-root", "_NET_CLIENT_LIST_STACKING")
        return [str(int(word.strip(), 16)) for word in answer.split("#")[-1].split(",")]


def used_seconds(pid):
    """Processor time so far: of the process with all its threads, and of its children that have ended."""
    with open(f"/proc/{pid}/stat") as file:
        fields = file.read().rpartition(")")[2].split()
    own, children = int(fields[11]) + int(fields[12]), int(fields[13]) + int(fields[14])
    return own / TICKS, children / TICKS


def memory(pid):
    """Resident memory in MB: all of it, and what no file and no other process has."""
    with open(f"/proc/{pid}/status") as file:
        lines = dict(line.split(":", 1) for line in file)
    return tuple(int(lines[name].split()[0]) / 1024 for name in ("VmRSS", "RssAnon"))
