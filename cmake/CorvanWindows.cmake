# What a program for Windows carries beside its code. Nothing here does anything for other systems.

if(MINGW)
  add_link_options(-static) # the compiler's libraries too: a program that needs no DLL but the system's
endif()

# corvan_windows_program(<target> <description>): icon, version and manifest of an executable.
function(corvan_windows_program target description)
  if(NOT WIN32)
    return()
  endif()
  set(CORVAN_PROGRAM ${target})
  set(CORVAN_DESCRIBED "${description}")
  set(CORVAN_ICON "${PROJECT_SOURCE_DIR}/packaging/icons/corvan.ico")
  configure_file("${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc" @ONLY)
  target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
endfunction()

# corvan_windows_plugins(<target> [<platform plugins>...]): the parts that a static Qt must be told of; no formats of pictures but its own.
function(corvan_windows_plugins target)
  if(NOT WIN32)
    return()
  endif()
  get_target_property(kind Qt6::Gui TYPE)
  if(kind STREQUAL "STATIC_LIBRARY")
    qt_import_plugins(${target} INCLUDE_BY_TYPE platforms ${ARGN} EXCLUDE_BY_TYPE imageformats)
  endif()
endfunction()
