# Installed programs find the library beside them, wherever the package is put.
set(CMAKE_INSTALL_RPATH $ORIGIN/../${CMAKE_INSTALL_LIBDIR})

# What most files include, compiled once. A build without it (KVRAEDI_PCH off) proves that every file
# names what it uses.
set(standard_headers <algorithm> <array> <charconv> <cstdint> <filesystem> <functional> <map> <memory>
  <optional> <ostream> <span> <string> <string_view> <utility> <vector>)

# A target of nothing that compiles the standard headers, and those named further, for others.
function(kvraedi_header_owner name)
  if(NOT KVRAEDI_PCH)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "HEADERS;LIBRARIES;FLAGS" ${ARGN})
  file(CONFIGURE OUTPUT ${name}.cc CONTENT "// Only its headers are wanted.\n")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cc)
  kvraedi_settings(${name})
  target_compile_options(${name} PRIVATE ${ARG_FLAGS} ${pch_flags})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES})
  target_precompile_headers(${name} PRIVATE ${standard_headers} ${ARG_HEADERS})
endfunction()

# The target takes the compiled headers of `owner`. Position independence is one of the things that
# have to be equal; ccache needs -fpch-preprocess.
set(pch_flags -fPIC $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
function(kvraedi_precompiled target owner)
  if(KVRAEDI_PCH)
    target_compile_options(${target} PRIVATE ${pch_flags})
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()

# What every target of the project is compiled with.
function(kvraedi_settings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wno-missing-field-initializers -Werror)
  if(KVRAEDI_SANITIZE)
    target_compile_definitions(${target} PRIVATE KVRAEDI_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()

# A static library with one adapter: it knows floor 1 only, and leaves it to the program whether the
# component comes as the shared library or as the internals that tests use.
function(kvraedi_adapter name)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;LIBRARIES" ${ARGN})
  add_library(kvraedi_${name} STATIC ${ARG_SOURCES})
  kvraedi_settings(kvraedi_${name})
  kvraedi_precompiled(kvraedi_${name} kvraedi_product_headers)
  target_link_libraries(kvraedi_${name}
    PUBLIC kvraedi_headers $<INSTALL_INTERFACE:kvraedi::kvraedi>
    PRIVATE ${ARG_LIBRARIES})
  # Installed headers keep their name, "platform/<name>/x.h", in a folder of their own.
  set(headers ${CMAKE_INSTALL_INCLUDEDIR}/kvraedi-platform)
  target_include_directories(kvraedi_${name} INTERFACE $<INSTALL_INTERFACE:${headers}>)
  set_target_properties(kvraedi_${name} PROPERTIES EXPORT_NAME ${name})
  install(TARGETS kvraedi_${name} EXPORT kvraedi ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(FILES ${ARG_HEADERS} DESTINATION ${headers}/platform/${name})
endfunction()

# A test program, registered test by test. Links the component's internals and the named adapters.
# What is tested is optimised; the test itself is compiled fast (KVRAEDI_TEST_FLAGS).
function(kvraedi_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  kvraedi_settings(${name})
  target_compile_options(${name} PRIVATE ${KVRAEDI_TEST_FLAGS})
  target_compile_definitions(${name} PRIVATE KVRAEDI_PRUEBAS="${PROJECT_SOURCE_DIR}/tests")
  kvraedi_precompiled(${name} kvraedi_test_headers)
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} kvraedi_internals GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 DISCOVERY_MODE PRE_TEST)
endfunction()
