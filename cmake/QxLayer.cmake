# Layers of the library.
#
# qx_layer(NAME n FOLDER f [EXCLUDE f...] [USES layer...]) makes the object library qx_n from
# src/f and keeps, in a global property, the list of it and all layers below: only object
# libraries that a target names directly hand on their objects.

function(qx_layer)
  cmake_parse_arguments(ARG "" "NAME;FOLDER" "EXCLUDE;USES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/${ARG_FOLDER}/*.cpp")
  foreach(folder IN LISTS ARG_EXCLUDE)
    list(FILTER sources EXCLUDE REGEX "/src/${folder}/")
  endforeach()
  if(NOT WIN32)
    list(FILTER sources EXCLUDE REGEX "/platform/windows/")
  else()
    list(FILTER sources EXCLUDE REGEX "/platform/posix/")
  endif()

  set(below "")
  foreach(layer IN LISTS ARG_USES)
    get_property(of_layer GLOBAL PROPERTY QX_LAYERS_OF_${layer})
    list(APPEND below ${of_layer})
  endforeach()
  list(REMOVE_DUPLICATES below)

  if(sources)
    add_library(qx_${ARG_NAME} OBJECT ${sources})
    target_include_directories(qx_${ARG_NAME} PRIVATE
      "${CMAKE_SOURCE_DIR}/include" "${CMAKE_SOURCE_DIR}/src")
    target_compile_definitions(qx_${ARG_NAME} PRIVATE QX_BUILDING_LIBRARY=1)
    target_link_libraries(qx_${ARG_NAME} PRIVATE qx_options qx_coverage qx_dependencies)
    list(APPEND below qx_${ARG_NAME})
  endif()
  set_property(GLOBAL PROPERTY QX_LAYERS_OF_${ARG_NAME} "${below}")
endfunction()

# The objects of a layer and all layers below it, as sources for a target.
function(qx_layer_objects LAYER OUT)
  get_property(layers GLOBAL PROPERTY QX_LAYERS_OF_${LAYER})
  set(objects "")
  foreach(layer IN LISTS layers)
    list(APPEND objects $<TARGET_OBJECTS:${layer}>)
  endforeach()
  set(${OUT} "${objects}" PARENT_SCOPE)
endfunction()

# The shared and the static library, put together from a layer and all below it.
function(qx_libraries)
  cmake_parse_arguments(ARG "" "NAME;LAYER" "" ${ARGN})
  qx_layer_objects(${ARG_LAYER} objects)
  foreach(kind SHARED STATIC)
    string(TOLOWER ${kind} suffix)
    set(target ${ARG_NAME}_${suffix})
    add_library(${target} ${kind} ${objects})
    target_link_libraries(${target} PUBLIC ${QX_PUBLIC_DEPENDENCIES}
      PRIVATE $<BUILD_INTERFACE:qx_options> ${QX_PRIVATE_DEPENDENCIES})
    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include>")
    target_compile_features(${target} INTERFACE cxx_std_17)  # that is enough for the headers
    set_target_properties(${target} PROPERTIES OUTPUT_NAME ${ARG_NAME} LINKER_LANGUAGE CXX
      VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  endforeach()
  target_compile_definitions(${ARG_NAME}_static INTERFACE QX_STATIC=1)
  if(UNIX AND NOT APPLE)
    set(map "${CMAKE_SOURCE_DIR}/cmake/exported_names.map")
    target_link_options(${ARG_NAME}_shared PRIVATE "LINKER:--version-script=${map}")
    set_property(TARGET ${ARG_NAME}_shared APPEND PROPERTY LINK_DEPENDS "${map}")
  endif()
endfunction()
