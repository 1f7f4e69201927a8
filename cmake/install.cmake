# What a workstation needs, in one folder, as in a build: the component finds its modules and report files, and the programs
# their libraries, beside themselves. A link in bin/ makes the program known; headers serve who writes a host.
include(GNUInstallDirs)
set(OPD_HOME ${CMAKE_INSTALL_LIBDIR}/opd-registration)

get_property(modules GLOBAL PROPERTY OPD_MODULES) # each names itself
install(TARGETS opd-base opd-ado opd-com opd-ui opd-script opd-component opd-codesearch ${modules} opd-desk
  RUNTIME DESTINATION ${OPD_HOME} LIBRARY DESTINATION ${OPD_HOME})
if(TARGET opd-provider-odbc)
  install(TARGETS opd-provider-odbc LIBRARY DESTINATION ${OPD_HOME})
endif()
install(FILES Reports/DataSheet.rpt DESTINATION ${OPD_HOME}/Reports)
install(CODE "
  file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(RELATIVE_PATH program \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\" \"\${CMAKE_INSTALL_PREFIX}/${OPD_HOME}/opd-desk\")
  file(CREATE_LINK \"\${program}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/opd-desk\" SYMBOLIC)")

foreach(room base ado com)
  install(DIRECTORY src/${room} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/opd-registration FILES_MATCHING PATTERN "*.h")
endforeach()
install(FILES src/component/init_dll.h src/component/environment.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/opd-registration/component)
install(DIRECTORY database/sqlserver DESTINATION ${CMAKE_INSTALL_DATADIR}/opd-registration/database)
install(FILES README.md LICENSE docs/operator-scripts.md docs/embedded-database.md docs/sqlserver.md docs/reports.md docs/tour.opd
  DESTINATION ${CMAKE_INSTALL_DOCDIR})
