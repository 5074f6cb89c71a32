// The catalogue keys of the compile errors that more than one source of the compiler raises.
#pragma once

namespace zoka {

inline constexpr char KEY_SYNTAX_ERR[] = "@Compile_Err_Syntax_Err@";
inline constexpr char KEY_ILL_FUNC_CALL[] = "@Compile_Err_Ill_Func_Call@";
inline constexpr char KEY_MISSING_OPERAND[] = "@Compile_Err_Missing_Operand@";
inline constexpr char KEY_TOO_MANY_OPERAND[] = "@Compile_Err_Too_Many_Operand@";
inline constexpr char KEY_MISMATCH_ARG[] = "@Compile_Err_Type_Mismatch_Arg@";
inline constexpr char KEY_MISMATCH_ASSIGN[] = "@Compile_Err_Type_Mismatch_Assign@";

}  // namespace zoka
