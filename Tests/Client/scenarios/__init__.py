"""The scenarios, in the order in which they run."""

from . import background, compaction, connection, failure, interrupt, permission, plan, question, session, subagent

ALL = [connection, session, permission, question, plan, failure, background, subagent, interrupt, compaction]
