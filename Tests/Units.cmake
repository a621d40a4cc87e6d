# The test programs, one line each.

mimkins_test(Base)
mimkins_test(Model)
mimkins_test(Session)
mimkins_test(SessionStore)
mimkins_test(Presentation)
mimkins_test(Platform)
mimkins_test(Settings)
mimkins_test(Background)
mimkins_test(Subtask)
mimkins_test(Sweep TIMEOUT 180)
mimkins_test(NextUp)
