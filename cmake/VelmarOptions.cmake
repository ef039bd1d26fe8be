# Language, warning and Qt settings that every target of ours shares.

add_library(velmar_options INTERFACE)
target_compile_options(velmar_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
  -Wcast-align -Wunused -Wnull-dereference -Wimplicit-fallthrough -Werror)
target_compile_definitions(velmar_options INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_FOREACH
  QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(velmar_options INTERFACE ${CMAKE_SOURCE_DIR})

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # -fpch-preprocess lets ccache see through the precompiled header. GCC 12 reports null
  # dereferences inside Qt's and the library's inline functions once the optimiser has run.
  target_compile_options(velmar_options INTERFACE -fpch-preprocess -Wno-null-dereference)
endif()

set(VELMAR_SANITIZE "" CACHE STRING "Sanitizers for every target, for instance address,undefined")
if(VELMAR_SANITIZE)
  add_compile_options(-fsanitize=${VELMAR_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VELMAR_SANITIZE})
endif()

option(VELMAR_PCH "Use precompiled headers" ON)
