# Object libraries that make up libzrdraw.
#
# zr_add_object_library(name [ISA set] [FLAGS ...])
#   An OBJECT library with the library's compile settings, optionally with
#   extra flags (an instruction set, a resize variant's -m options).
#
# zr_sources(file...)
#   Adds library sources. A file whose name ends in _sse41, _avx2, _avx512 or
#   _neon goes to the object library of that instruction set and is compiled
#   with that set's flags only; it is dropped on the other architecture.
#   A file ending in _x86 is one body for every x86 set: it goes to each of
#   the sse41, avx2 and avx512 object libraries, where ZR_ISA_NS names the
#   set (the namespace its code lives in) and ZR_ISA_<set> is defined.
#   Everything else goes to zrdraw_base.

set_property(GLOBAL PROPERTY ZR_OBJECT_LIBS "")

function(zr_add_object_library name)
  cmake_parse_arguments(ARG "" "ISA" "FLAGS" ${ARGN})
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
  if(ARG_ISA)
    target_compile_definitions(${name} PRIVATE ZR_ISA_NS=${ARG_ISA} ZR_ISA_${ARG_ISA}=1)
  endif()
  target_link_libraries(${name} PUBLIC Threads::Threads)
  set_property(GLOBAL APPEND PROPERTY ZR_OBJECT_LIBS ${name})
endfunction()

function(zr_isa_library isa out)
  set(target zrdraw_${isa})
  if(NOT TARGET ${target})
    zr_add_object_library(${target} ISA ${isa} FLAGS ${ZR_ISA_FLAGS_${isa}})
  endif()
  set(${out} ${target} PARENT_SCOPE)
endfunction()

function(zr_sources)
  foreach(src IN LISTS ARGN)
    get_filename_component(abs "${src}" ABSOLUTE)
    get_filename_component(stem "${src}" NAME_WE)
    set(targets zrdraw_base)
    if(stem MATCHES "_x86$")
      set(targets "")
      if(ZR_ARCH_X86)
        foreach(isa IN LISTS ZR_ISAS)
          zr_isa_library(${isa} target)
          list(APPEND targets ${target})
        endforeach()
      endif()
    endif()
    foreach(isa sse41 avx2 avx512 neon)
      if(stem MATCHES "_${isa}$")
        set(targets "")
        if(isa IN_LIST ZR_ISAS)
          zr_isa_library(${isa} target)
          set(targets ${target})
        endif()
      endif()
    endforeach()
    foreach(target IN LISTS targets)
      target_sources(${target} PRIVATE "${abs}")
    endforeach()
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
