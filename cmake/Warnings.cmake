# The catalogue's texts are Windows-1252 and the sources write them as plain
# UTF-8 literals, so the compiler must translate narrow literals. Only GCC can
# (-fexec-charset); any other compiler would silently store UTF-8 in the tables.
# The fuzz build (clang) keeps its own way: it checks the readers' safety, not texts.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT DORVANO_FUZZ)
  message(FATAL_ERROR
    "DORVANO braucht GCC: nur GCC übersetzt die Texte der Quellen nach Windows-1252 "
    "(-fexec-charset=CP1252). Gefunden: ${CMAKE_CXX_COMPILER_ID}. "
    "Bitte mit CC=gcc CXX=g++ konfigurieren.")
endif()

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
