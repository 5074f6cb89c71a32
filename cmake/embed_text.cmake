# Script: writes OUTPUT, a C++ file that holds the text of INPUT as the constant NAME.
file(READ ${INPUT} text)
# Compilers limit a literal's length, so it is cut into pieces that are joined by the compiler.
string(REPLACE "\n" "\n)zoka\"\n    R\"zoka(" text "${text}")
file(WRITE ${OUTPUT}.new
     "// Generated; do not edit.\nnamespace zoka {\n"
     "extern const char ${NAME}[];\nconst char ${NAME}[] =\n    R\"zoka(${text})zoka\";\n"
     "}  // namespace zoka\n")
file(COPY_FILE ${OUTPUT}.new ${OUTPUT} ONLY_IF_DIFFERENT)
file(REMOVE ${OUTPUT}.new)
execute_process(COMMAND ${CMAKE_COMMAND} -E touch ${OUTPUT})
