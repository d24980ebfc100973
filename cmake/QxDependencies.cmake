# What the library links: ICU, FreeType, zlib, expat and, as an option, fontconfig. Texts of the
# public interface are ICU's, so hosts link its common part too; the others stay inside.

find_package(ICU 70 REQUIRED COMPONENTS uc data)
find_package(Freetype REQUIRED)
find_package(ZLIB REQUIRED)
find_package(EXPAT REQUIRED)

set(QX_PUBLIC_DEPENDENCIES ICU::uc ICU::data)
set(QX_PRIVATE_DEPENDENCIES Freetype::Freetype ZLIB::ZLIB EXPAT::EXPAT)
# The same for who links the static library: to find_package, to pkg-config, to Debian.
set(QX_STATIC_PACKAGES Freetype ZLIB EXPAT)
set(QX_STATIC_MODULES freetype2 zlib expat)
set(QX_STATIC_DEBIAN libfreetype-dev zlib1g-dev libexpat1-dev)
if(QX_FONTCONFIG)
  find_package(Fontconfig REQUIRED)
  list(APPEND QX_PRIVATE_DEPENDENCIES Fontconfig::Fontconfig)
  list(APPEND QX_STATIC_PACKAGES Fontconfig)
  list(APPEND QX_STATIC_MODULES fontconfig)
  list(APPEND QX_STATIC_DEBIAN libfontconfig-dev)
endif()

add_library(qx_dependencies INTERFACE)
target_link_libraries(qx_dependencies INTERFACE
  ${QX_PUBLIC_DEPENDENCIES} ${QX_PRIVATE_DEPENDENCIES})
if(QX_FONTCONFIG)
  target_compile_definitions(qx_dependencies INTERFACE QX_WITH_FONTCONFIG=1)
endif()
