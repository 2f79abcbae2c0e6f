# Files of text that a program brings along.
#
# zelvo_embed(TARGET FOLDER PATTERN HEADER FUNCTION TYPE): every file of src/FOLDER that matches the pattern becomes an
# entry of the list that FUNCTION, declared in HEADER, gives: {name, text} in a TYPE.
#
# The second half of this file is the script that writes the list while building.

if(NOT CMAKE_SCRIPT_MODE_FILE)
  function(zelvo_embed target folder pattern header function type)
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/${pattern})
    set(list ${CMAKE_BINARY_DIR}/embedded/${target}_${function}.cpp)
    add_custom_command(
      OUTPUT ${list}
      COMMAND ${CMAKE_COMMAND} -DLIST=${list} "-DFILES=${files}" -DHEADER=${header}
              -DFUNCTION=${function} -DTYPE=${type} -P ${CMAKE_SOURCE_DIR}/cmake/embed.cmake
      DEPENDS ${files} ${CMAKE_SOURCE_DIR}/cmake/embed.cmake
      COMMENT "Embedding the files of ${folder}"
      VERBATIM)
    target_sources(${target} PRIVATE ${list})
  endfunction()
  return()
endif()

set(entries "")
foreach(path IN LISTS FILES)
  file(READ "${path}" text)
  get_filename_component(name "${path}" NAME)
  string(APPEND entries "    {\"${name}\", R\"zelvo(${text})zelvo\"},\n")
endforeach()
get_filename_component(folder "${LIST}" DIRECTORY)
file(MAKE_DIRECTORY "${folder}")
file(WRITE "${LIST}" "#include \"${HEADER}\"

namespace zelvo {

std::span<const ${TYPE}> ${FUNCTION}() {
  static constexpr ${TYPE} list[] = {
${entries}  };
  return list;
}

}  // namespace zelvo
")
