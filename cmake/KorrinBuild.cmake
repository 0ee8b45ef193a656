# How every target of this project is compiled.

function(korrin_compile_options target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Sizes of files and instants have 64 bits all the same.
    target_compile_definitions(${target} PRIVATE _FILE_OFFSET_BITS=64 _TIME_BITS=64)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "86|AMD64")
      # The old floating-point unit of x86 computes with more digits than a double has, and rounds when
      # it runs out of registers: results would differ from one compiler to the next.
      target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse)
    endif()
  endif()
  if(PROJECT_IS_TOP_LEVEL)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
    # g++ 12 sees overlaps in std::string's operator+ that cannot be; later versions do not.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
    # It tidies up its memory less often: sources with many templates compile a tenth faster, in 50 MB more.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=262144>)
    # Sources compiled together share their unnamed namespaces: what one calls its own hides what another does.
    target_compile_options(${target} PRIVATE $<$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>:-Wno-shadow>)
    # libstdc++ 12 uses a deprecated function of its own in std::stable_sort, as clang 19 sees.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
  endif()
  if(KORRIN_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${KORRIN_SANITIZE} -fno-omit-frame-pointer
                                             -fno-sanitize-recover=all ${KORRIN_SANITIZE_OPTIONS})
    target_link_options(${target} PUBLIC -fsanitize=${KORRIN_SANITIZE} ${KORRIN_SANITIZE_OPTIONS})
  endif()
endfunction()

# Sources of a target that stay by themselves where others are compiled together, since they give other
# meanings to the same names.
function(korrin_compile_alone target)
  set_source_files_properties(${ARGN} TARGET_DIRECTORY ${target}
                              PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# What most sources of a target begin with, compiled once: standard headers, the document and the headers
# named after the target. A source includes what it uses all the same: the preset clang compiles without.
set(KORRIN_COMMON_HEADERS <algorithm> <array> <charconv> <chrono> <cmath> <functional> <map> <memory>
    <optional> <set> <span> <string> <string_view> <utility> <variant> <vector>
    ${PROJECT_SOURCE_DIR}/korrin/model/project.h)
function(korrin_precompile target)
  if(KORRIN_PRECOMPILE_HEADERS)
    target_precompile_headers(${target} PRIVATE ${KORRIN_COMMON_HEADERS} ${ARGN})
  endif()
endfunction()
