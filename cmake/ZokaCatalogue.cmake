# zoka_catalogue(LAYER): compiles the files of locale/en and locale/ja into that layer, so that the
# programs need no data file to speak.
function(zoka_catalogue layer)
  set(output ${CMAKE_BINARY_DIR}/generated/catalogue_data.cpp)
  file(GLOB inputs CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/locale/*/*.txt)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_SOURCE_DIR}/locale -DOUTPUT=${output}
            -P ${CMAKE_SOURCE_DIR}/cmake/embed_catalogue.cmake
    DEPENDS ${inputs} ${CMAKE_SOURCE_DIR}/cmake/embed_catalogue.cmake
    COMMENT "Embedding the message catalogues"
    VERBATIM)
  target_sources(zoka_${layer} PRIVATE ${output})
endfunction()
