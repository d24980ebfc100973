# What `cmake --install` puts where: the shared library (component runtime); headers, the static
# library and what finds them (development); qxfont with its page (tools).

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Where the dynamic linker and the compiler look by themselves, nothing is said of the place;
# anywhere else the installed tree may be moved as a whole.
set(QX_SYSTEM_PREFIX OFF)
if(CMAKE_INSTALL_FULL_LIBDIR IN_LIST CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
  set(QX_SYSTEM_PREFIX ON)
endif()

# --- the libraries ---------------------------------------------------------------------------

set_target_properties(QXFontService13_shared PROPERTIES EXPORT_NAME QXFontService)
set_target_properties(QXFontService13_static PROPERTIES EXPORT_NAME static)
install(TARGETS QXFontService13_shared EXPORT QXFontServiceTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
  INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(TARGETS QXFontService13_static EXPORT QXFontServiceStaticTargets
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
  INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY include/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
  FILES_MATCHING PATTERN "*.h")
install(FILES LICENSE NOTICE DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT runtime)
install(FILES README.md docs/install.md DESTINATION "${CMAKE_INSTALL_DOCDIR}"
  COMPONENT development)

# --- find_package ----------------------------------------------------------------------------

string(REGEX MATCH "^[0-9]+" QX_ICU_MAJOR "${ICU_VERSION}")
set(folder "${CMAKE_INSTALL_LIBDIR}/cmake/QXFontService")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/QXFontServiceConfig.cmake.in"
  "${CMAKE_BINARY_DIR}/cmake/QXFontServiceConfig.cmake" INSTALL_DESTINATION "${folder}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/cmake/QXFontServiceConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/cmake/QXFontServiceConfig.cmake"
  "${CMAKE_BINARY_DIR}/cmake/QXFontServiceConfigVersion.cmake"
  DESTINATION "${folder}" COMPONENT development)
foreach(targets QXFontServiceTargets QXFontServiceStaticTargets)
  install(EXPORT ${targets} NAMESPACE QXFontService:: DESTINATION "${folder}"
    COMPONENT development)
endforeach()

# --- pkg-config ------------------------------------------------------------------------------

set(module_folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
if(QX_SYSTEM_PREFIX)
  set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
else()
  file(RELATIVE_PATH up "${CMAKE_INSTALL_PREFIX}/${module_folder}" "${CMAKE_INSTALL_PREFIX}")
  string(REGEX REPLACE "/$" "" up "${up}")
  set(pc_prefix "\${pcfiledir}/${up}")
endif()
cmake_path(APPEND pc_libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND pc_includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
math(EXPR next_icu "${QX_ICU_MAJOR} + 1")
list(JOIN QX_STATIC_MODULES ", " pc_static_modules)
configure_file("${CMAKE_CURRENT_LIST_DIR}/qxfontservice13.pc.in"
  "${CMAKE_BINARY_DIR}/cmake/qxfontservice13.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/cmake/qxfontservice13.pc" DESTINATION "${module_folder}"
  COMPONENT development)

# --- qxfont ----------------------------------------------------------------------------------

add_custom_target(installed DEPENDS QXFontService13_shared QXFontService13_static)
if(TARGET qxfont)
  add_dependencies(installed qxfont)
  if(NOT QX_SYSTEM_PREFIX)
    file(RELATIVE_PATH to_library "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
    set_target_properties(qxfont PROPERTIES INSTALL_RPATH "$ORIGIN/${to_library}")
  endif()
  install(TARGETS qxfont DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
  install(FILES docs/man/qxfont.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
  install(FILES tools/qxfont/completion.bash RENAME qxfont COMPONENT tools
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
endif()

include(QxPackages)
