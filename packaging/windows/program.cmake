# What a Windows program needs besides its code: an icon, a version, a manifest, Qt's plugins (linked into it, because
# Qt is static), and the command for the console.
enable_language(RC)
set(windows ${CMAKE_SOURCE_DIR}/packaging/windows)
configure_file(${windows}/vantorin.rc.in vantorin.rc @ONLY)
configure_file(${windows}/vantorin.manifest.in vantorin.manifest @ONLY)
target_sources(vantorin PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/vantorin.rc)
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/vantorin.rc PROPERTIES
    INCLUDE_DIRECTORIES "${windows};${CMAKE_CURRENT_BINARY_DIR}"
    OBJECT_DEPENDS "${windows}/vantorin.ico;${CMAKE_CURRENT_BINARY_DIR}/vantorin.manifest")

# The unattended run uses the offscreen platform. Pictures are drawn, so no image formats are needed.
qt_import_plugins(vantorin
    INCLUDE Qt6::QOffscreenIntegrationPlugin
    EXCLUDE_BY_TYPE imageformats)

add_executable(vantorin_command ${windows}/command.cpp)
set_target_properties(vantorin_command PROPERTIES OUTPUT_NAME vantorin SUFFIX .com)
target_link_options(vantorin_command PRIVATE -municode)
add_dependencies(vantorin vantorin_command)
