# The Debian packages, made by cpack: the desk, and the headers for who writes a host. No script of a maintainer is needed:
# the classes are registered by each user's own program, and a hospital's data lies where its owner has put it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON) # packing builds nothing: it takes what is built
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME opd-registration)
set(CPACK_PACKAGE_VENDOR "the contributors to the out-patient registration desk")
set(CPACK_PACKAGE_CONTACT "The contributors to the out-patient registration desk <maintainers@opd-registration.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME opd-registration)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_UNSPECIFIED_DESCRIPTION "registration desk of a hospital's out-patient department
Finds a patient in the hospital's master index by name, scanned card or member
number, registers and corrects out-patient visits, takes the patient's
photograph and prints the data sheet. Works on a hospital in a folder of this
machine, or on a Microsoft SQL Server.

This package has the desk, its windows, and the tools of an administrator.")
# The libraries say by themselves what they need; each lies beside the program and serves nobody else.
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_DEPENDS "sqlite3, fonts-dejavu-core")
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_RECOMMENDS "tdsodbc, qt6-wayland, bash-completion")
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_SUGGESTS "cups")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_DEV_PACKAGE_NAME opd-registration-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_DEV_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS opd-registration)
set(CPACK_DEBIAN_DEV_DESCRIPTION "headers of the out-patient registration desk
The registration desk is a component that a hospital's own program can load.

This package has the headers that such a program is written with.")

# What Debian wants to know of each package.
configure_file(packaging/changelog.in ${CMAKE_BINARY_DIR}/packaging/changelog @ONLY)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/packaging/changelog.gz
  COMMAND gzip -9nkf ${CMAKE_BINARY_DIR}/packaging/changelog
  DEPENDS ${CMAKE_BINARY_DIR}/packaging/changelog)
add_custom_target(opd-changelog ${always} DEPENDS ${CMAKE_BINARY_DIR}/packaging/changelog.gz)
foreach(component Unspecified dev)
  set(name opd-registration)
  if(component STREQUAL dev)
    set(name opd-registration-dev)
  endif()
  install(FILES packaging/copyright ${CMAKE_BINARY_DIR}/packaging/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endforeach()

include(CPack)
