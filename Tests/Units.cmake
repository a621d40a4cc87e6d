# The test programs, one line each.

mimkins_test(Base)
mimkins_test(Model)
mimkins_test(Session)
mimkins_test(SessionStore)
mimkins_test(Presentation)
mimkins_test(Background)
