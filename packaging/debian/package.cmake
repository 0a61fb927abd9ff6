# The Debian package: what "cmake --install" puts into /usr, plus the files that Debian requires. It is for the Debian
# release on which it is built.
set(debian_folder ${CMAKE_CURRENT_LIST_DIR})
cmake_host_system_information(RESULT release QUERY DISTRIB_VERSION_CODENAME)
execute_process(COMMAND date --utc --rfc-email --date=${VANTORIN_RELEASE_DATE}T12:00
    OUTPUT_VARIABLE release_time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(${debian_folder}/changelog.in ${CMAKE_BINARY_DIR}/debian/changelog @ONLY)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantorin)
set(CPACK_PACKAGE_CONTACT "The Vantorin developers <vantorin@vantorin.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION "${VANTORIN_DESCRIPTION}
.
A window shows what each connection is doing. It also runs from a terminal or
a script, without a window.
.
${VANTORIN_LIMITS}")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION web)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)  # opens the finished copy
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PRE_BUILD_SCRIPTS ${debian_folder}/add_documents.cmake)
set(CPACK_VANTORIN_DOCUMENTS ${debian_folder}/copyright ${CMAKE_BINARY_DIR}/debian/changelog)
include(CPack)
