# The folder of resources that both programs carry: hook/status.sh, AGENT-SETUP.md and bin/mimkin. It stands in the
# build folder, made of links, and is installed as share/mimkins, so that all three are found the same way from
# both places.

set(build_resources ${CMAKE_BINARY_DIR}/Resources)
file(MAKE_DIRECTORY ${build_resources}/bin)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/Resources/hook ${build_resources}/hook SYMBOLIC)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/Resources/AGENT-SETUP.md ${build_resources}/AGENT-SETUP.md SYMBOLIC)
file(CREATE_LINK ${CMAKE_BINARY_DIR}/Sources/mimkin/mimkin ${build_resources}/bin/mimkin SYMBOLIC)

set(installed_resources ${CMAKE_INSTALL_DATADIR}/mimkins)
install(
    FILES ${CMAKE_SOURCE_DIR}/Resources/hook/status.sh
    DESTINATION ${installed_resources}/hook
    PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE
)
install(FILES ${CMAKE_SOURCE_DIR}/Resources/AGENT-SETUP.md DESTINATION ${installed_resources})

# A relative link, so that the whole can be moved.
file(RELATIVE_PATH command_link
    ${CMAKE_INSTALL_FULL_DATADIR}/mimkins/bin ${CMAKE_INSTALL_FULL_BINDIR}/mimkin)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/installed-links)
file(CREATE_LINK ${command_link} ${CMAKE_BINARY_DIR}/installed-links/mimkin SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/installed-links/mimkin DESTINATION ${installed_resources}/bin)
