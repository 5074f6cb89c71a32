// Fuzz target: string functions and statements on texts of any bytes, with any positions and
// counts. The input chooses the mode, two texts, three numbers and the statements that use them.
#include <string>

#include "tests/fuzz/fuzz_engine.h"

namespace {

using namespace zoka;

constexpr const char* STATEMENTS[] = {
    "PRINT MID$(A$,N,M)",
    "PRINT KMID$(A$,N,M)",
    "PRINT KMID$(A$,N)",
    "PRINT LEFT$(A$,N);RIGHT$(A$,M)",
    "PRINT INSTR(N,A$,B$);INSTR(A$,B$)",
    "PRINT KINSTR(N,A$,B$);KINSTR(A$,B$)",
    "PRINT LEN(A$);KLEN(A$);KLEN(B$,1)",
    "PRINT KLEN(A$,N)",
    "PRINT KTYPE(A$,N)",
    "PRINT KEXT$(A$,N)",
    "PRINT AKCNV$(A$);KACNV$(A$)",
    "PRINT JIS$(A$)",
    "PRINT KNJ$(A$)",
    "PRINT ASC(A$)",
    "PRINT CHR$(N)",
    "PRINT STRING$(N,A$);STRING$(M,K)",
    "PRINT SPACE$(N);HEX$(M);OCT$(K);STR$(N)",
    "PRINT VAL(A$)",
    "PRINT CVI(A$);CVS(B$);CVD(A$)",
    "PRINT MKI$(N);MKS$(M);MKD$(K)",
    "MID$(A$,N,M)=B$",
    "MID$(A$,N)=B$",
    "KMID$(A$,N,M)=B$",
    "A$=A$+B$+A$",
    "SWAP A$,B$",
    "A$=STRING$(N,A$):B$=MID$(A$,M)",
    "B$=LEFT$(B$,1)+RIGHT$(A$,1)",
    "PRINT A$<B$;A$=B$;A$>=B$",
    "PRINT USING A$;N;M;K",
    "PRINT USING \"& &!@##.##\";A$;B$;A$;N",
    "WRITE A$,N,B$",
    "PRINT A$,B$,TAB(N);A$;SPC(M);B$",
    "WIDTH 40:LOCATE N,M:PRINT A$",
    "CONSOLE 3,4:PRINT A$;B$",
    "ON INSTR(A$,B$) GOTO 900,900",
    "KEY 1,A$",
    "GOTO A$",
    "RESTORE A$",
    "PLAY A$",
    "PRINT ATTR$(A$)",
    "TIME$=A$:DATE$=B$",
    "LSET A$=B$:RSET B$=A$",
};

/// Longest text of the first line.
constexpr int MAX_TEXT = 80;

std::string program_of(TFuzzInput& input) {
  std::string text = "10 A$=" + input.Literal(MAX_TEXT);
  text += ":B$=" + input.Literal(MAX_TEXT);
  for (const char* name : {":N=", ":M=", ":K="}) text += name + input.Number();
  text += "\n";
  int line = 20;
  for (constexpr int LAST_LINE = 200; line < LAST_LINE && !input.IsEmpty(); line += 10) {
    text += std::to_string(line) + " " + input.OneOf(STATEMENTS) + "\n";
  }
  return text + "900 END\n";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  TFuzzInput input(data, size);
  TFuzzEngine engine;
  const bool isDisk = input.Byte() % 2 == 0;
  engine.SetCompatMode(isDisk ? COMPAT_DISK : COMPAT_DOS);
  engine.Type({});
  engine.RunBytes(program_of(input));
  return 0;
}
