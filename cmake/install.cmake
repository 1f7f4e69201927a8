# What a workstation needs, in one folder, as in a build: the component finds its modules and report files, and the programs
# their libraries, beside themselves. A link in bin/ makes the program known; headers serve who writes a host.
include(GNUInstallDirs)
set(OPD_HOME ${CMAKE_INSTALL_LIBDIR})
if(CMAKE_LIBRARY_ARCHITECTURE AND NOT OPD_HOME MATCHES "${CMAKE_LIBRARY_ARCHITECTURE}$")
  string(APPEND OPD_HOME /${CMAKE_LIBRARY_ARCHITECTURE}) # where Debian has what is made for a machine
endif()
string(APPEND OPD_HOME /opd-registration)

get_property(modules GLOBAL PROPERTY OPD_MODULES) # each names itself
install(TARGETS opd-base opd-ado opd-com opd-ui opd-script opd-component opd-codesearch ${modules} opd-desk
  RUNTIME DESTINATION ${OPD_HOME} LIBRARY DESTINATION ${OPD_HOME})
if(TARGET opd-provider-odbc)
  install(TARGETS opd-provider-odbc LIBRARY DESTINATION ${OPD_HOME})
endif()
install(DIRECTORY Reports/ DESTINATION ${OPD_HOME}/Reports FILES_MATCHING PATTERN "*.rpt")
install(CODE "
  file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(RELATIVE_PATH program \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\" \"\${CMAKE_INSTALL_PREFIX}/${OPD_HOME}/opd-desk\")
  file(CREATE_LINK \"\${program}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/opd-desk\" SYMBOLIC)")

# Headers serve who writes a host, and are a package of their own.
foreach(room base ado com)
  install(DIRECTORY src/${room} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/opd-registration COMPONENT dev
    FILES_MATCHING PATTERN "*.h")
endforeach()
install(FILES src/component/init_dll.h src/component/environment.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/opd-registration/component COMPONENT dev)
install(DIRECTORY database/sqlserver DESTINATION ${CMAKE_INSTALL_DATADIR}/opd-registration/database)
install(DIRECTORY acceptance DESTINATION ${CMAKE_INSTALL_DATADIR}/opd-registration USE_SOURCE_PERMISSIONS)
install(FILES docs/clerk.md docs/administrator.md docs/operator-scripts.md docs/embedded-database.md docs/sqlserver.md docs/reports.md docs/tour.opd
  DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/images DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.png") # of the guides

# What the program says of itself, in the form of manual pages and of bash's completion.
set(manual ${CMAKE_BINARY_DIR}/manual)
add_custom_command(OUTPUT ${manual}/opd-desk.bash
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${manual}
  COMMAND $<TARGET_FILE:opd-desk> manual ${manual}
  COMMAND gzip -9n ${manual}/*.1
  DEPENDS opd-desk
  COMMENT "Writing the manual pages")
if(NOT OPD_SANITIZE) # which nobody installs
  set(always ALL)
endif()
add_custom_target(opd-manual ${always} DEPENDS ${manual}/opd-desk.bash)
install(DIRECTORY ${manual}/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 FILES_MATCHING PATTERN "*.1.gz")
install(FILES ${manual}/opd-desk.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME opd-desk)

install(FILES packaging/opd-desk.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/opd-desk.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
