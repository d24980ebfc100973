# Compiler settings that every target of the project shares, as one interface target.

add_library(qx_options INTERFACE)
target_compile_options(qx_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  # Results of float arithmetic are part of the interface: no fused multiply-add.
  -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees an overlap in std::string::replace where there is none (its bug 105651).
  target_compile_options(qx_options INTERFACE -Wno-restrict)
endif()
if(QX_WERROR)
  target_compile_options(qx_options INTERFACE -Werror)
endif()
if(QX_SANITIZE)
  target_compile_options(qx_options INTERFACE
    -fsanitize=${QX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qx_options INTERFACE -fsanitize=${QX_SANITIZE})
endif()

# What the fuzz targets run is compiled with the counters that guide them. The tests link the same
# objects: the run-time library of the address sanitizer answers the counters' calls there.
add_library(qx_coverage INTERFACE)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND QX_SANITIZE MATCHES "address")
  target_compile_options(qx_coverage INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(QX_CCACHE ccache)
if(QX_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${QX_CCACHE}")
endif()
