# One library per folder of src/. Each folder's headers are reachable only by those who link it, so that an
# include that runs up the house does not compile.

add_library(corvan_flags INTERFACE)
target_compile_options(corvan_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -ffp-contract=off
  $<$<BOOL:${CORVAN_WERROR}>:-Werror>
  # g++ 12 sees overlaps in std::string operator+ that are not there (GCC bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# corvan_floor(<folder> [libraries...]): library corvan_<folder> from src/<folder>/*.cpp.
function(corvan_floor folder)
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp" "${CMAKE_SOURCE_DIR}/src/${folder}/*.h")
  add_library(corvan_${folder} STATIC ${sources})
  corvan_include_root(corvan_${folder} ${folder})
  target_link_libraries(corvan_${folder} PUBLIC corvan_flags ${ARGN})
endfunction()

# Gives a target (and those who link it) the path under which "<folder>/Name.h" is found, and nothing beside it.
function(corvan_include_root target folder)
  if(WIN32)
    target_include_directories(${target} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    return()
  endif()
  set(root "${CMAKE_BINARY_DIR}/floors/${folder}")
  file(MAKE_DIRECTORY "${root}")
  file(CREATE_LINK "${CMAKE_SOURCE_DIR}/src/${folder}" "${root}/${folder}" SYMBOLIC)
  target_include_directories(${target} PUBLIC "${root}")
endfunction()
