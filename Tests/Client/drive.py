#!/usr/bin/env python3
"""Runs the scenarios against the real client and the programs under test. Started by `run`, which finds them."""

import argparse
import signal
import sys
import traceback
from contextlib import ExitStack
from pathlib import Path
from types import ModuleType

import scenarios
from harness.application import Application
from harness.home import Home
from harness.mimkin import Mimkin
from harness.report import Report, ScenarioOver
from harness.service import ModelService
from harness.session import Session
from harness.waiting import Missed


def main() -> int:
    options = parse()
    for ending in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(ending, lambda *_: sys.exit(1))
    chosen = [scenario for scenario in scenarios.ALL if is_wanted(scenario, options.names)]
    report = Report()
    for scenario in chosen:
        run(scenario, options, report)
    return 0 if report.finish() else 1


def parse() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="./test client", description=__doc__)
    parser.add_argument("names", nargs="*", help="only the scenarios whose name contains one of these words")
    parser.add_argument("--keep", action="store_true", help="leave the scenarios' home folders for a look")
    parser.add_argument("--client", type=Path, required=True, help="the agent client")
    parser.add_argument("--mimkin", type=Path, required=True, help="the mimkin command")
    parser.add_argument("--mimkins", type=Path, required=True, help="the application")
    parser.add_argument("--homes", type=Path, required=True, help="where the throw-away home folders are made")
    return parser.parse_args()


def name_of(scenario: ModuleType) -> str:
    return scenario.__name__.rpartition(".")[2]


def is_wanted(scenario: ModuleType, names: list[str]) -> bool:
    return not names or any(name in name_of(scenario) for name in names)


def run(scenario: ModuleType, options: argparse.Namespace, report: Report) -> None:
    """Runs one scenario in a home of its own, and leaves nothing running however it ends."""
    home = Home(options.homes.resolve())
    try:
        carry_through(scenario, home, options, report)
    except ScenarioOver:
        pass
    except Exception:  # pylint: disable=broad-except # the others still run, and this one counts as failed
        report.broke(f"{name_of(scenario)} broke off\n{traceback.format_exc()}")
    finally:
        if options.keep:
            print(f"     kept {home.path}")
        else:
            home.remove()


def carry_through(scenario: ModuleType, home: Home, options: argparse.Namespace, report: Report) -> None:
    with ExitStack() as ending:
        service = ModelService(home, scenario.SCRIPTS)
        ending.callback(service.stop)
        session = Session(home, options.client.resolve(), Mimkin(options.mimkin.resolve(), home), service)
        ending.callback(session.stop)
        application = []
        if hasattr(scenario, "WITH_APPLICATION"):
            pictures = options.homes.resolve() / "pictures" / name_of(scenario)
            application = [Application(options.mimkins.resolve(), home, pictures)]
            ending.callback(application[0].stop)
        perform(scenario, session, application, report)


def perform(scenario: ModuleType, session: Session, application: list[Application], report: Report) -> None:
    """Runs the scenario's checks. The hooks are connected before, unless there is an application to do it in."""

    def evidence() -> str:
        return "\n".join(part.evidence() for part in [session, *application])

    check = report.scenario(name_of(scenario), evidence)
    try:
        if not application:
            session.mimkin.connect()
        scenario.run(session, check, *application)
    except Missed as missed:
        report.broke(f"{name_of(scenario)}, outside its checks: {missed}\n{evidence()}")


if __name__ == "__main__":
    sys.exit(main())
