# What the library links: ICU, FreeType, zlib, expat and, as an option, fontconfig.

find_package(ICU 70 REQUIRED COMPONENTS uc i18n data)
find_package(Freetype REQUIRED)
find_package(ZLIB REQUIRED)
find_package(EXPAT REQUIRED)

add_library(qx_dependencies INTERFACE)
target_link_libraries(qx_dependencies INTERFACE
  ICU::uc ICU::i18n ICU::data Freetype::Freetype ZLIB::ZLIB EXPAT::EXPAT ${CMAKE_DL_LIBS})
if(QX_FONTCONFIG)
  find_package(Fontconfig REQUIRED)
  target_link_libraries(qx_dependencies INTERFACE Fontconfig::Fontconfig)
  target_compile_definitions(qx_dependencies INTERFACE QX_WITH_FONTCONFIG=1)
endif()
