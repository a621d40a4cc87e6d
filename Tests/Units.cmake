# The test programs, one line each.

mimkins_test(Base)
