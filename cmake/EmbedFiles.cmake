# Writes files into a C++ source as a table of tessara::CFileResource. A file is named after its kind and number:
# animation-134.svg. Run as a script: cmake -DOUTPUT=x.cpp -DFUNCTION=Name -DFILES="a;b" -P EmbedFiles.cmake
if(CMAKE_SCRIPT_MODE_FILE)
  set(arrays "")
  set(table "")
  foreach(file IN LISTS FILES)
    get_filename_component(name ${file} NAME_WE)
    if(NOT name MATCHES "^(icon|cursor|bitmap|animation)-([0-9]+)$")
      message(FATAL_ERROR "${file}: not named KIND-NUMBER")
    endif()
    set(kind ${CMAKE_MATCH_1})
    set(number ${CMAKE_MATCH_2})
    file(READ ${file} bytes HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
    string(APPEND arrays "constexpr unsigned char ${kind}_${number}[] = {${bytes}};\n")
    string(APPEND table "    {tessara::EFileResource::${kind}, ${number}, ${kind}_${number}},\n")
  endforeach()
  file(WRITE ${OUTPUT} "#include \"tessara/platform/ui/resources/Resources.h\"\n\nnamespace {\n\n${arrays}\n"
    "constexpr tessara::CFileResource FILES[] = {\n${table}};\n\n} // namespace\n\n"
    "std::span<const tessara::CFileResource> ${FUNCTION}();\n"
    "std::span<const tessara::CFileResource> ${FUNCTION}() {\n    return FILES;\n}\n")
  return()
endif()

set(TESSARA_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_FILE})

# tessara_embed(TARGET FUNCTION files...): adds to a target the function `std::span<const tessara::CFileResource>
# FUNCTION()` that lists the files.
function(tessara_embed target function)
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${function}.cpp)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ OUTPUT_VARIABLE files)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${output} -DFUNCTION=${function} "-DFILES=${files}" -P ${TESSARA_EMBED_SCRIPT}
    DEPENDS ${files} ${TESSARA_EMBED_SCRIPT} VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
