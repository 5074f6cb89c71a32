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
