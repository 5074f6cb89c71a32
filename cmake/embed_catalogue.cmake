# Script: writes OUTPUT, a C++ file that holds each language's catalogue text as it stands.
file(WRITE ${OUTPUT}.new
     "// Generated from locale/; do not edit.\n"
     "#include \"common/catalogue.h\"\n\nnamespace zoka {\n")
foreach(language en ja)
  set(text "")
  file(GLOB parts ${ROOT}/${language}/*.txt)
  list(SORT parts)
  foreach(part ${parts})
    file(READ ${part} content)
    string(APPEND text "${content}\n")
  endforeach()
  # Compilers limit a literal's length, so it is cut into pieces that are joined by the compiler.
  string(REPLACE "\n" "\n)zoka\"\n    R\"zoka(" text "${text}")
  string(TOUPPER ${language} upper)
  file(APPEND ${OUTPUT}.new "const char CATALOGUE_${upper}[] =\n    R\"zoka(${text})zoka\";\n")
endforeach()
file(APPEND ${OUTPUT}.new "}  // namespace zoka\n")
file(COPY_FILE ${OUTPUT}.new ${OUTPUT} ONLY_IF_DIFFERENT)
file(REMOVE ${OUTPUT}.new)
execute_process(COMMAND ${CMAKE_COMMAND} -E touch ${OUTPUT})
