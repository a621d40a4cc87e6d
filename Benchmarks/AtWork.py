#!/usr/bin/env python3
"""Ten sessions, or any other number, that are all at work, in a throw-away home.

    Benchmarks/AtWork.py COMMAND HOME SESSIONS EVENTS

COMMAND is the program mimkin, which connects the home; EVENTS is how many hook events there are a second, of all
sessions together. The sessions take turns. Each works through its round: a call, its result, the next call; at the
beginning of a round the user says what comes next. Nobody waits and no turn ends. All of it is real: the connected hook
script writes the records, a live process stands for each client and runs a shell for each command, transcripts and the
clients' registry grow and change, and files of git repositories are edited. It goes on until it is ended; the
processes end with it.
"""
import ctypes, datetime, json, os, signal, subprocess, sys, time

SUPPORT = "Library/Application Support/Mimkins"
JOBS = [
    ("weather-station", "Read the wind sensor twice a second"), ("shop", "Move the basket to the new checkout"),
    ("compiler", "Constant folding for shifts"), ("blog", "Pick a layout for the archive"),
    ("archive", "Sort forty years of letters"), ("garden", "Plan the beds for spring"),
    ("star-chart", "Names of the southern stars"), ("choir", "Print the new songs"),
    ("bakery", "Count the loaves of a week"), ("library", "An index in several languages"),
]  # fmt: skip
SOURCE = "".join(f"{number:5}\tline {number} of what was read, about as long as a line is\n" for number in range(1, 41))
ROUND = [
    ("Grep", {"pattern": "reading\\("}, SOURCE[:600]),
    ("Read", {"file_path": "$DIR/src/main.txt"}, SOURCE),
    ("Edit", {"file_path": "$DIR/src/main.txt", "old_string": "line 4", "new_string": "line four"}, "It is updated."),
    ("Bash", {"command": "ctest --output-on-failure", "description": "Run the tests"}, "100% tests passed"),
    ("WebFetch", {"url": "https://example.org/letters", "prompt": "What is it about?"}, SOURCE[:1500]),
    ("Bash", {"command": "make -j2", "description": "Build the program"}, SOURCE[:300]),
]
END_WITH_PARENT = 1  # of prctl


def end_with_parent(parent):
    ctypes.CDLL(None).prctl(END_WITH_PARENT, signal.SIGKILL)
    if os.getppid() != parent:
        os._exit(1)


class Client:
    """A live process that stands for an agent's client, and has a shell as its child when it is told to."""

    def __init__(self):
        reader, self.orders = os.pipe()
        parent = os.getpid()
        self.pid = os.fork()
        if self.pid == 0:
            end_with_parent(parent)
            os.close(self.orders)
            self.live(reader)
        os.close(reader)

    def live(self, reader):
        shell = None
        with os.fdopen(reader) as orders:
            for order in orders:
                if shell:
                    shell.kill()
                    shell.wait()
                    shell = None
                if order.strip():
                    words = ["/bin/sh", "-c", "read -r line", order.strip()]
                    me = os.getpid()
                    shell = subprocess.Popen(words, stdin=subprocess.PIPE, preexec_fn=lambda: end_with_parent(me))
        os._exit(0)

    def run(self, command):
        """Has a shell with this command, which waits instead of running it; none if it is empty."""
        os.write(self.orders, f"{command}\n".encode())


class Session:
    def __init__(self, home, number):
        project, self.title = JOBS[number % len(JOBS)]
        self.home, self.id = home, f"{number:08x}-aaaa-4aaa-8aaa-aaaaaaaaaaaa"
        self.folder = f"{home}/Projects/{project}-{number}"
        dashed = "".join(letter if letter.isascii() and letter.isalnum() else "-" for letter in self.folder)
        self.transcript = f"{home}/.claude/projects/{dashed}/{self.id}.jsonl"
        self.started, self.turn, self.calls = self.now(), 0, number % len(ROUND)
        self.client = Client()
        os.makedirs(os.path.dirname(self.transcript), exist_ok=True)
        os.makedirs(f"{home}/.claude/sessions", exist_ok=True)
        self.make_repository()

    @staticmethod
    def now():
        return int(time.time() * 1000)

    def make_repository(self):
        os.makedirs(f"{self.folder}/src")
        self.edit()
        own = {"HOME": self.home, "PATH": "/usr/bin:/bin", "GIT_CONFIG_GLOBAL": "/dev/null", "GIT_CONFIG_NOSYSTEM": "1"}
        who = ["-c", "user.name=Bench", "-c", "user.email=bench@example.org", "-c", "gc.auto=0"]
        for words in (["init", "--quiet", "--template="], ["add", "--all"], ["commit", "--quiet", "--message", "Begin"]):
            subprocess.run(["git", *who, *words], cwd=self.folder, env=own, check=True)

    def edit(self):
        with open(f"{self.folder}/src/main.txt", "w") as file:
            file.write(SOURCE + "another line\n" * self.turn)

    def register(self):
        """What the client says of itself: it is at work."""
        path = f"{self.home}/.claude/sessions/{self.client.pid}.json"
        record = {
            "pid": self.client.pid, "sessionId": self.id, "cwd": self.folder, "startedAt": self.started,
            "kind": "interactive", "entrypoint": "cli", "name": self.title, "status": "busy",
            "updatedAt": self.now(), "statusUpdatedAt": self.now(),
        }  # fmt: skip
        with open(f"{path}.part", "w") as file:
            json.dump(record, file)
        os.rename(f"{path}.part", path)

    def hook(self, event, **members):
        payload = {
            "session_id": self.id, "transcript_path": self.transcript, "cwd": self.folder,
            "permission_mode": "default", "effort": {"level": "high"}, "hook_event_name": event, **members,
        }  # fmt: skip
        environment = {"HOME": self.home, "PATH": "/usr/bin:/bin", "CLAUDE_PROJECT_DIR": self.folder}
        script = f"{self.home}/{SUPPORT}/hook/status.sh"
        subprocess.run(["/bin/sh", script], input=json.dumps(payload).encode(), env=environment, cwd=self.folder)

    def line(self, kind, message):
        moment = datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%S.%f")[:-3] + "Z"
        record = {
            "parentUuid": None, "isSidechain": False, "type": kind, "message": message,
            "uuid": f"{self.id}-{self.turn}-{kind}", "timestamp": moment, "cwd": self.folder, "sessionId": self.id,
        }  # fmt: skip
        with open(self.transcript, "a") as file:
            file.write(json.dumps(record) + "\n")

    def arrive(self):
        self.hook("SessionStart", source="startup", model="claude-opus-4-8")
        self.prompt()

    def prompt(self):
        text = "Go on with the next part of it."
        self.hook("UserPromptSubmit", prompt=text)
        self.line("user", {"role": "user", "content": text})
        self.register()

    def call(self, name, given, use):
        message = {"type": "message", "role": "assistant", "model": "claude-opus-4-8", "stop_reason": "tool_use"}
        self.line("assistant", {**message, "content": [{"type": "tool_use", "id": use, "name": name, "input": given}]})
        self.hook("PreToolUse", tool_name=name, tool_input=given, tool_use_id=use)
        if name == "Bash":
            self.client.run(given["command"])
        elif name == "Edit":
            self.edit()

    def result(self, name, given, use, text):
        self.client.run("")
        found = {"tool_use_id": use, "type": "tool_result", "content": text, "is_error": False}
        self.line("user", {"role": "user", "content": [found]})
        response = {"stdout": text, "interrupted": False}
        self.hook("PostToolUse", tool_name=name, tool_input=given, tool_use_id=use, tool_response=response)
        self.register()

    def step(self):
        """The next event of the session."""
        place = self.turn % (2 * len(ROUND) + 1)
        self.turn += 1
        if place == 2 * len(ROUND):
            self.prompt()
            return
        name, given, text = ROUND[(place // 2 + self.calls) % len(ROUND)]
        given = {key: value.replace("$DIR", self.folder) for key, value in given.items()}
        use = f"toolu_{self.id}_{(self.turn + 1) // 2}"
        if place % 2 == 0:
            self.call(name, given, use)
        else:
            self.result(name, given, use, text)


def main():
    command, home, count, events = sys.argv[1], os.path.abspath(sys.argv[2]), int(sys.argv[3]), float(sys.argv[4])
    end_with_parent(os.getppid())
    os.makedirs(f"{home}/.claude", exist_ok=True)
    subprocess.run([command, "hooks", "connect", "--home", home], check=True)
    sessions = [Session(home, number) for number in range(count)]
    for session in sessions:
        session.arrive()
    begun, done = time.monotonic(), 0
    while True:
        sessions[done % count].step()
        done += 1
        time.sleep(max(0.0, begun + done / events - time.monotonic()))


main()
