"""The scenarios, in the order in which they run."""

from . import (
    background,
    commit,
    compaction,
    connection,
    failure,
    interrupt,
    permission,
    plan,
    question,
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
    subagent,
    supervising,
    commit,
    interrupt,
    compaction,
]
