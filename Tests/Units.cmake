# The test programs, one line each.

mimkins_test(Base)
mimkins_test(Background)
