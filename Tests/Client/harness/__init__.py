"""What every scenario of the end-to-end run stands on: home folder, model service, terminal, command, session."""
