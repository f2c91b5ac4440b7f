# What `cmake --install` puts in place. The public headers are those that tessara/tessara.h includes.
include(CMakePackageConfigHelpers)

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS tessara/tessara.h)
file(STRINGS tessara/tessara.h public_headers REGEX "^#include \"")
list(TRANSFORM public_headers REPLACE "#include \"(.*)\"" "${PROJECT_SOURCE_DIR}/\\1")
target_sources(tessara PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}
  FILES tessara/tessara.h ${public_headers})

install(TARGETS tessara EXPORT TessaraTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# find_package(Tessara)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Tessara)
install(EXPORT TessaraTargets NAMESPACE Tessara:: DESTINATION ${package_folder})
configure_package_config_file(cmake/TessaraConfig.cmake.in ${PROJECT_BINARY_DIR}/TessaraConfig.cmake
  INSTALL_DESTINATION ${package_folder})
# Before version 1.0 every minor version may change the interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TessaraConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TessaraConfig.cmake ${PROJECT_BINARY_DIR}/TessaraConfigVersion.cmake
  DESTINATION ${package_folder})

# pkg-config tessara: paths are told from where the file lies, so the installed tree can be moved.
file(RELATIVE_PATH prefix_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
configure_file(cmake/tessara.pc.in ${PROJECT_BINARY_DIR}/tessara.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tessara.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The command finds the library beside itself, wherever both lie.
if(TARGET tessara_command)
  file(RELATIVE_PATH library_from_command ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(tessara_command PROPERTIES INSTALL_RPATH "$ORIGIN/${library_from_command}")
endif()

# The pages with their pictures, and the examples to read and to draw from: what the pages point to is there.
set(document_folder ${CMAKE_INSTALL_DATAROOTDIR}/doc/tessara)
install(FILES LICENSE README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${document_folder})
install(DIRECTORY docs DESTINATION ${document_folder} FILES_MATCHING PATTERN "*.md" PATTERN "*.png")
install(DIRECTORY examples/data DESTINATION ${document_folder}/examples
  FILES_MATCHING PATTERN "*.txt" PATTERN "*.json")
foreach(folder calculation chain flory/model flory/program frame variants)
  install(DIRECTORY examples/${folder}/ DESTINATION ${document_folder}/examples/${folder}
    FILES_MATCHING PATTERN "*.cpp" PATTERN "*.h")
endforeach()
