# The test programs, one line each.

mimkins_test(Base)
mimkins_test(HookInstaller)
add_subdirectory(HookInstaller/driver)
