# The packages that ./dev package makes of what is installed: one .deb a component, and one archive
# of all.

set(CPACK_PACKAGE_NAME qxfontservice)
set(CPACK_PACKAGE_VENDOR "The QXFontService authors")
set(CPACK_PACKAGE_CONTACT "The QXFontService authors")
set(CPACK_RESOURCE_FILE_LICENSE "${CMAKE_SOURCE_DIR}/LICENSE")
set(CPACK_RESOURCE_FILE_README "${CMAKE_SOURCE_DIR}/README.md")
set(CPACK_PACKAGE_FILE_NAME
  "qxfontservice-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR TGZ)

set(CPACK_COMPONENTS_ALL runtime development)
if(TARGET qxfont)
  list(APPEND CPACK_COMPONENTS_ALL tools)
endif()
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

# --- Debian ----------------------------------------------------------------------------------

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# qxfont links the library of the package beside it, which dpkg does not know yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_BINARY_DIR}")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libqxfontservice13)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Font service: shared library
A library that finds the face which answers a request for a family, weight,
italic and stretch, reads it, shapes text with it, and embeds the part of it
that a document needs.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqxfontservice13-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
list(JOIN QX_STATIC_DEBIAN ", " static_packages)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libicu-dev, ${static_packages}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Font service: headers and static library
What is needed to compile hosts of the font service: headers, the static
library, and the files of CMake and pkg-config that find them.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME qxfont)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Font service: command line
Lists and matches fonts, tells what is inside, shapes and sets text, and
writes the part of a font that a document needs.")

# Debian looks for the licence in the folder of each package's own name.
if(QX_SYSTEM_PREFIX)
  file(READ "${CMAKE_SOURCE_DIR}/LICENSE" licence)
  file(READ "${CMAKE_SOURCE_DIR}/NOTICE" notice)
  file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/cmake/copyright" @ONLY CONTENT "@licence@\n@notice@")
  foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    install(FILES "${CMAKE_BINARY_DIR}/cmake/copyright" COMPONENT ${component}
      DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}")
  endforeach()
endif()

include(CPack)
