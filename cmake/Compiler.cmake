# Settings of every target of this tree, collected in one interface target.
add_library(tessara_settings INTERFACE)
target_compile_options(tessara_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual -Wdouble-promotion -Wundef
  # Developers keep the code free of warnings; whoever only builds the library must not fail on those of another compiler.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${TESSARA_BUILD_TESTS}>>:-Werror>
  # GCC 12 sees overlaps in "text" + std::string that are not there (its bug 105651).
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>
  # Results are those of the written formulas, bit for bit: no fused multiply-add.
  -ffp-contract=off)
if(TESSARA_SANITIZE)
  target_compile_options(tessara_settings INTERFACE -fsanitize=${TESSARA_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all
    # What sanitizers add to the code makes GCC 12 see uninitialised values in the standard library.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(tessara_settings INTERFACE -fsanitize=${TESSARA_SANITIZE})
endif()

find_program(TESSARA_CCACHE ccache)
if(TESSARA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${TESSARA_CCACHE})
endif()
