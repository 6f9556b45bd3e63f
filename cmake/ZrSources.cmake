# Object libraries that make up libzrdraw.
#
# zr_add_object_library(name [FLAGS ...])
#   An OBJECT library with the library's compile settings, optionally with
#   extra flags (an instruction set, a resize variant's -m options).
#
# zr_sources(file...)
#   Adds library sources. A file whose name ends in _sse41, _avx2, _avx512 or
#   _neon goes to the object library of that instruction set and is compiled
#   with that set's flags only; it is dropped on the other architecture.
#   Everything else goes to zrdraw_base.

set_property(GLOBAL PROPERTY ZR_OBJECT_LIBS "")

function(zr_add_object_library name)
  cmake_parse_arguments(ARG "" "" "FLAGS" ${ARGN})
  add_library(${name} OBJECT)
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    C_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
  target_compile_definitions(${name} PRIVATE ZRDRAW_BUILDING=1)
  target_compile_options(${name} PRIVATE ${ZR_COMMON_FLAGS} ${ARG_FLAGS})
  target_link_libraries(${name} PUBLIC Threads::Threads)
  set_property(GLOBAL APPEND PROPERTY ZR_OBJECT_LIBS ${name})
endfunction()

function(zr_sources)
  foreach(src IN LISTS ARGN)
    get_filename_component(abs "${src}" ABSOLUTE)
    get_filename_component(stem "${src}" NAME_WE)
    set(target zrdraw_base)
    set(skip OFF)
    foreach(isa sse41 avx2 avx512 neon)
      if(stem MATCHES "_${isa}$")
        if(isa IN_LIST ZR_ISAS)
          set(target zrdraw_${isa})
          if(NOT TARGET ${target})
            zr_add_object_library(${target} FLAGS ${ZR_ISA_FLAGS_${isa}})
          endif()
        else()
          set(skip ON)
        endif()
      endif()
    endforeach()
    if(NOT skip)
      target_sources(${target} PRIVATE "${abs}")
    endif()
  endforeach()
endfunction()

# Builds libzrdraw.so (the documented interface only) and zrdraw_static (the
# same objects, for tests and tools that reach internal kernels and hooks).
function(zr_assemble_libraries)
  get_property(libs GLOBAL PROPERTY ZR_OBJECT_LIBS)
  set(objects "")
  foreach(lib IN LISTS libs)
    list(APPEND objects $<TARGET_OBJECTS:${lib}>)
  endforeach()

  add_library(zrdraw SHARED ${objects})
  add_library(zrdraw::zrdraw ALIAS zrdraw)
  set_target_properties(zrdraw PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/zrdraw.map)
  target_link_options(zrdraw PRIVATE
    -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/zrdraw.map
    -Wl,--no-undefined)
  target_include_directories(zrdraw PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zrdraw>)
  target_link_libraries(zrdraw PRIVATE Threads::Threads)

  add_library(zrdraw_static STATIC EXCLUDE_FROM_ALL ${objects})
  target_include_directories(zrdraw_static PUBLIC
    ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR})
  target_link_libraries(zrdraw_static PUBLIC Threads::Threads)
endfunction()
