# The help on keywords (docs/help/keywords.txt) is compiled in: hover and F1 need no data file.
set(keyword_help ${CMAKE_BINARY_DIR}/generated/keyword_help_data.cpp)
add_custom_command(
  OUTPUT ${keyword_help}
  COMMAND ${CMAKE_COMMAND} -DNAME=KEYWORD_HELP -DINPUT=${CMAKE_SOURCE_DIR}/docs/help/keywords.txt
          -DOUTPUT=${keyword_help} -P ${CMAKE_SOURCE_DIR}/cmake/embed_text.cmake
  DEPENDS ${CMAKE_SOURCE_DIR}/docs/help/keywords.txt ${CMAKE_SOURCE_DIR}/cmake/embed_text.cmake
  COMMENT "Embedding the help on keywords"
  VERBATIM)
target_sources(zoka_editor PRIVATE ${keyword_help})
