# Common compile settings for every target of the project.
function(dorvano_settings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual)
  if(DORVANO_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  # Narrow string literals are Windows-1252 at run time: every message, log line
  # and file text of the catalogue is 8-bit, while the sources stay UTF-8.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${target} PRIVATE -finput-charset=UTF-8 -fexec-charset=CP1252)
  endif()
  if(DORVANO_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# A layer library: every .cpp of the folder, public include root is the project root.
function(dorvano_layer target)
  file(GLOB _src CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT _src)
    # A layer that has no code yet still links.
    set(_leer ${CMAKE_CURRENT_BINARY_DIR}/${target}_leer.cpp)
    file(WRITE ${_leer} "namespace dv {}\n")
    set(_src ${_leer})
  endif()
  add_library(${target} STATIC ${_src})
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  dorvano_settings(${target})
endfunction()
