// Members of TCompiler that hold the work of the function generators: included inside the class, so
// no guard.
TToken GenFuncDealToken(const TToken& first, int32_t min, int32_t max, TArgSpec spec,
                        std::vector<TToken>* args);
TToken GenFuncMath(const TToken& first, TVMCodeCmd cmd, TTokenKind* kind);
TToken GenFuncSpecifyArgAndRet(const TToken& first, TVMCodeCmd cmd, TTokenKind argKind,
                               TTokenKind retKind, TTokenKind* kind);
TToken GenFuncNoArgSpecifyRet(const TToken& first, TVMCodeCmd cmd, TTokenKind retKind,
                              TTokenKind* kind);
TToken GenFuncInstrFamily(const TToken& first, TVMCodeCmd cmd, TTokenKind* kind);
TToken GenFuncMidDlFamily(const TToken& first, TVMCodeCmd cmd, TTokenKind* kind);
TToken GenFuncUserFuncCall(const TToken& first, TTokenKind* kind);
/// A function whose second argument may be left out; the operand says whether it was written.
TToken GenFuncOptionalArg(TVMCodeCmd cmd, std::string_view pattern, TTokenKind retKind,
                          TTokenKind* kind);
TToken GenFuncTwoArgs(TVMCodeCmd cmd, std::string_view pattern, TTokenKind retKind,
                      TTokenKind* kind);
/// A function that is not implemented: skips its argument and pushes 0, or an empty text.
TToken GenFuncConstant(const TToken& first, TTokenKind retKind, TTokenKind* kind);
void AddConstant(TTokenKind kind);
