// Members of TCompiler that serve single statements: included inside the class, so no guard.

// Pieces that several statements share (statement_pieces.cpp, deal_token.cpp, statements_*.cpp).

/// An expression of a list. One that takes no token raises a syntax error, since the list would
/// never end.
TToken GenListExpr(const TToken& first, TTokenKind* kind);
/// An expression that must not be a string.
TToken GenNumber(const TToken& first);
/// An expression that must be a string; `key` is raised for any other.
TToken GenString(const TToken& first, const char* key);
/// A list of variables, which must not be empty, and the operation with their count.
TToken GenVariables(TVMCodeCmd cmd);
/// A variable or element as a reference.
TToken GenReference(const TToken& first, TTokenKind* kind);
/// `*LABEL` or an expression whose value is a line number.
TToken GenTarget(const TToken& first);
/// Targets separated by commas, up to the end of the statement; counts the empty places too.
TToken GenTargets(const TToken& first, int32_t* count);
/// "(x,y)" with the present token at its "("; the token behind the ")" is returned.
TToken GenPoint(const TToken& first);
/// Skips an optional STEP in front of a point; true if there was one.
bool SkipStep(TToken* token);
void AddAbbrevs(int32_t count);

/// The arguments a form takes, from a short text: n a number, s a string, a any value, S the word
/// STEP, "(", ")" and "-" themselves; "?" behind an element makes it optional.
static TArgSpec ArgSpec(std::string_view pattern);
struct TDeal;
void DealStep(TDeal* deal);
void DealSeparator(TDeal* deal);
void DealExpr(TDeal* deal);
void DealWord(TDeal* deal, TTokenKind kind);
/// DealToken that also tells how many elements of `spec` were used up; more than `args` holds means
/// that an optional element was passed over by a value that didn't fit it.
TToken DealTokenCounted(const TToken& first, int32_t min, int32_t max, const TArgSpec& spec,
                        std::vector<TToken>* args, int32_t* used);
struct TDealRow;
TToken GenProcDealRow(const TToken& keyword, const TDealRow& row);
TToken GenProcDealPoint(const TToken& keyword, std::string_view pattern, int32_t min, int32_t max,
                        std::vector<TToken>* args, bool* step);

// FOR
struct TForVar;
TForVar FindForVar(int32_t start) const;
void AddForSubscripts(const TForVar& var);
void AddForValue(const TForVar& var);
std::vector<TVMCode> CutCodes(int32_t start);
void AppendCodes(const std::vector<TVMCode>& codes);
void AddForIncrement(const TForVar& var, const std::vector<TVMCode>& step);
void AddForTest(const TForVar& var, const std::vector<TVMCode>& limit,
                const std::vector<TVMCode>& step);
TToken GenForHead(const std::string& test, const std::string& loop, const std::string& end);
TToken GenNextList(const TToken& next);

// Traps
TToken GenTrapArguments(const TToken& first, int32_t number, int32_t* form);
TToken GenTrapInParentheses(int32_t number);
void CheckTrapForm(int32_t number, int32_t form, int32_t targets);
void AddSetIrState(int32_t event, int32_t state);

TToken GenProcPrintWrite(const TToken& first, TVMCodeCmd cmd);
TToken GenPrintItem(const TToken& first, TVMCodeCmd cmd, const int32_t* file);
/// Pushes a file's number; nothing if `file` is null.
void AddFileNumber(const int32_t* file);
TToken GenProcPrintUsing(const TToken& first);
TToken GenProcInputFamily(const TToken& first, bool isLine);
TToken GenInputPrompt(const TToken& first, bool question);
TToken GenProcLineInput(const TToken& first);
TToken GenProcDataComma(const TToken& first);
TToken GenProcDefSeg(const TToken& first);
TToken GenProcDefUsr(const TToken& first);
TToken GenProcUserFuncDef(const TToken& first);
TToken GenUserFuncParams(const TToken& first);
TToken GenUserFuncBody(const TToken& first, TTokenKind type);
TToken GenProcOptionBase(const TToken& first);
TToken GenOpenMode(const TToken& first, int32_t* mode);
TToken GenProcColor1(const TToken& first);
TToken GenProcColor2(const TToken& first);
TToken GenStepPoint(const TToken& first);
TToken GenLineOptions(const TToken& first, TVMCodeCmd* cmd, int32_t* count);
TToken GenFillOperand(const TToken& first, int32_t* count);
TToken GenPlace(const TToken& first);
TToken GenCircleOptions(const TToken& first, bool* arc, bool* fill, int32_t* count);
TToken GenProcGetKernel(const TToken& first);
TToken GenProcPutKernel(const TToken& first);
TToken GenProcGetAtKernel(const TToken& first);
TToken GenProcPutAtKernel(const TToken& first);
TToken GenPutAtOptions(const TToken& first, bool kanji, int32_t* count);
TToken GenChainOptions(const TToken& first, int32_t* count);
TToken GenProcPlayAlloc(const TToken& first);
TToken GenProcWidth1(const TToken& first);
TToken GenProcWidth2(const TToken& first);
TToken GenProcWidth3(const TToken& first);
TToken GenProcCallMouse(const TToken& first);
