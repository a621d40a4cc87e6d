"""The scenarios, in the order in which they run."""

from . import (
    application,
    background,
    commit,
    compaction,
    connection,
    failure,
    interrupt,
    permission,
    plan,
    question,
    schedules,
    session,
    subagent,
    supervising,
)

ALL = [
    connection,
    session,
    permission,
    question,
    plan,
    failure,
    background,
    schedules,
    subagent,
    supervising,
    commit,
    interrupt,
    compaction,
    application,
]
