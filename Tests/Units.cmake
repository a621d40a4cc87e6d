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
mimkins_test(mimkin PROGRAMS mimkin)
mimkins_test(Hook TIMEOUT 400 SERIAL)
