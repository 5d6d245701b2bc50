# The program as it is with one box type more, which stands beside another one in every set of the
# catalogue and has a line of its own in the list of pictures: the steps of docs/adding-a-model.md.

# The sources in which there was something to add, written below the build folder.
function(panelora_added_model sources like added)
  set(written)
  file(GLOB catalogue CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/catalogue/*.cpp)
  foreach(source ${catalogue} ${PROJECT_SOURCE_DIR}/app/device_picture.cpp)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
    file(READ ${source} before)
    string(REGEX REPLACE "(\n *){${like}(,[^\n]*},)\n" "\\1{${like}\\2\\1{${added}\\2\n" after "${before}")
    if(after STREQUAL before)
      string(REGEX REPLACE "([ {])${like}([,}])" "\\1${like}, ${added}\\2" after "${before}")
    endif()
    if(NOT after STREQUAL before)
      cmake_path(GET source FILENAME name)
      file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/added_model/${name} CONTENT "${after}" @ONLY)
      list(APPEND written ${CMAKE_CURRENT_BINARY_DIR}/added_model/${name})
    endif()
  endforeach()
  set(${sources} ${written} PARENT_SCOPE)
endfunction()
