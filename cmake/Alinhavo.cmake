# What every target of the project shares.

add_library(alinhavo_options INTERFACE)
target_compile_options(alinhavo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wno-sign-conversion $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> -Wnon-virtual-dtor -Woverloaded-virtual
  -Wimplicit-fallthrough -Werror)
target_include_directories(alinhavo_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

# One library for the calling folder: the *.cpp files of it and of its folders, linked against exactly what is named.
function(alinhavo_library name)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT sources)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE alinhavo_options ${ARGN})
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PRIVATE alinhavo_options PUBLIC ${ARGN})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
endfunction()
