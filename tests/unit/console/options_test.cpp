// The command line of `zoka`: every option with what it takes and what it refuses.
#include "console/options.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

using TWords = std::vector<std::string>;

TOptions parsed(const TWords& words) {
  TOptions options;
  std::string error;
  EXPECT_TRUE(parse_options(words, &options, &error)) << error;
  return options;
}

/// The line that says what is accepted; "" if the words are.
std::string refusal(const TWords& words) {
  TOptions options;
  std::string error;
  return parse_options(words, &options, &error) ? "" : error;
}

TEST(Options, Commands) {
  EXPECT_EQ(parsed({"run", "a"}).command, TCommand::Run);
  EXPECT_EQ(parsed({"check", "a"}).command, TCommand::Check);
  EXPECT_EQ(parsed({"code", "a"}).command, TCommand::Code);
  EXPECT_EQ(parsed({"list", "a"}).command, TCommand::List);
  EXPECT_EQ(parsed({"renumber", "a"}).command, TCommand::Renumber);
  EXPECT_EQ(parsed({"play", "C"}).command, TCommand::Play);
  EXPECT_EQ(parsed({"--version"}).command, TCommand::Version);
  EXPECT_EQ(parsed({"--help"}).command, TCommand::Help);
  EXPECT_EQ(parsed({"--help"}).helpFor, "");
}

TEST(Options, HelpOfACommand) {
  for (const char* name : {"run", "check", "code", "list", "renumber", "play"}) {
    const TOptions options = parsed({name, "--help"});
    EXPECT_EQ(options.command, TCommand::Help);
    EXPECT_EQ(options.helpFor, name);
    EXPECT_NE(help_text(name).find(std::string("zoka ") + name), std::string::npos);
  }
  EXPECT_NE(help_text("").find("renumber FILE"), std::string::npos);
}

TEST(Options, ARefusalSaysWhatIsAccepted) {
  EXPECT_NE(refusal({}).find("run|check|code|list|renumber|play"), std::string::npos);
  EXPECT_NE(refusal({"walk"}).find("run|check"), std::string::npos);
  EXPECT_NE(refusal({"run", "a", "--bogus"}).find("[--no-wait]"), std::string::npos);
  const std::string list = refusal({"list", "a", "--bogus"});
  EXPECT_NE(list.find("[--encoding auto|utf8|sjis|jis]"), std::string::npos);
  EXPECT_EQ(list.find("--type"), std::string::npos);
  EXPECT_EQ(list.find('\n'), std::string::npos);
}

TEST(Options, Files) {
  EXPECT_EQ(parsed({"run", "-"}).file, "-");
  EXPECT_EQ(parsed({"run", "--", "--boot"}).file, "--boot");
  EXPECT_EQ(parsed({"run", ""}).file, "");
  EXPECT_NE(refusal({"run"}), "");
  EXPECT_NE(refusal({"run", "a", "b"}), "");
}

TEST(Options, MmlStrings) {
  EXPECT_EQ(parsed({"play", "A", "B", "C", "D", "E", "F"}).mml.size(), 6u);
  EXPECT_NE(refusal({"play"}), "");
  EXPECT_NE(refusal({"play", "A", "B", "C", "D", "E", "F", "G"}), "");
}

TEST(Options, Defaults) {
  const TOptions options = parsed({"run", "a"});
  EXPECT_FALSE(options.encoding || options.compat || options.timeoutSeconds || options.clock);
  EXPECT_FALSE(options.noWait || options.boot || options.plain || options.noConfig);
  EXPECT_TRUE(options.typed.empty() && options.drives.empty() && options.start.empty());
  EXPECT_EQ(options.newLine, 10);
  EXPECT_EQ(options.oldLine, 1);
  EXPECT_EQ(options.step, 10);
}

TEST(Options, BothFormsOfAValue) {
  EXPECT_EQ(parsed({"run", "--start=100", "a"}).start, "100");
  EXPECT_EQ(parsed({"run", "a", "--start", "*L"}).start, "*L");
  EXPECT_EQ(parsed({"run", "a", "--type=a=b"}).typed, TWords{"a=b"});
}

TEST(Options, Choices) {
  EXPECT_EQ(parsed({"run", "a", "--lang", "en"}).language, TLanguage::English);
  EXPECT_EQ(parsed({"run", "a", "--lang", "ja"}).language, TLanguage::Japanese);
  EXPECT_EQ(parsed({"run", "a", "--lang", "keys"}).language, TLanguage::Keys);
  EXPECT_EQ(parsed({"run", "a", "--encoding", "auto"}).encoding, 0);
  EXPECT_EQ(parsed({"run", "a", "--encoding", "utf8"}).encoding, 2);
  EXPECT_EQ(parsed({"run", "a", "--encoding", "sjis"}).encoding, 3);
  EXPECT_EQ(parsed({"run", "a", "--encoding", "jis"}).encoding, 4);
  EXPECT_EQ(parsed({"run", "a", "--compat", "auto"}).compat, 0);
  EXPECT_EQ(parsed({"run", "a", "--compat", "disk"}).compat, 2);
  EXPECT_EQ(parsed({"run", "a", "--compat", "dos"}).compat, 3);
  for (const char* option : {"--lang", "--encoding", "--compat"}) {
    EXPECT_NE(refusal({"run", "a", option, "x"}), "") << option;
    EXPECT_NE(refusal({"run", "a", option, ""}), "") << option;
    EXPECT_NE(refusal({"run", "a", option}), "") << option;
  }
}

TEST(Options, Config) {
  EXPECT_TRUE(parsed({"run", "a", "--config", "none"}).noConfig);
  EXPECT_EQ(parsed({"run", "a", "--config", "/d"}).configFolder, "/d");
  EXPECT_EQ(parsed({"run", "a", "--config", "none", "--config", "/d"}).configFolder, "/d");
  EXPECT_FALSE(parsed({"run", "a", "--config", "none", "--config", "/d"}).noConfig);
  EXPECT_NE(refusal({"run", "a", "--config", ""}), "");
}

TEST(Options, Switches) {
  const TOptions options = parsed({"run", "--no-wait", "--boot", "--plain", "a"});
  EXPECT_TRUE(options.noWait && options.boot && options.plain);
  EXPECT_NE(refusal({"run", "a", "--boot=yes"}), "");
  EXPECT_NE(refusal({"run", "a", "--boot="}), "");
}

TEST(Options, Drives) {
  const TOptions options = parsed({"run", "a", "--drive", "1=/x", "--drive", "14=/y=z"});
  EXPECT_EQ(options.drives.at(1), "/x");
  EXPECT_EQ(options.drives.at(14), "/y=z");
  for (const char* value : {"", "1", "1=", "=x", "0=x", "15=x", "-1=x", "x=y", "1 =x", "+1=x"}) {
    EXPECT_NE(refusal({"run", "a", "--drive", value}), "") << value;
  }
}

TEST(Options, Timeouts) {
  EXPECT_EQ(parsed({"run", "a", "--timeout", "2"}).timeoutSeconds, 2);
  EXPECT_EQ(parsed({"check", "a", "--timeout", "0.25"}).timeoutSeconds, 0.25);
  EXPECT_EQ(parsed({"code", "a", "--timeout", "0"}).timeoutSeconds, 0);
  for (const char* value : {"", "-1", "x", "1s", "nan", "inf", "1e300", " 1"}) {
    EXPECT_NE(refusal({"run", "a", "--timeout", value}), "") << value;
  }
  EXPECT_NE(refusal({"list", "a", "--timeout", "1"}), "");
}

TEST(Options, Clocks) {
  const TOptions options = parsed({"run", "a", "--clock", "2024-02-29T23:58:57"});
  EXPECT_EQ(options.clock->year, 2024);
  EXPECT_EQ(options.clock->month, 2);
  EXPECT_EQ(options.clock->day, 29);
  EXPECT_EQ(options.clock->hour, 23);
  EXPECT_EQ(options.clock->minute, 58);
  EXPECT_EQ(options.clock->second, 57);
  EXPECT_EQ(parsed({"run", "a", "--clock", "2000-02-29T00:00:00"}).clock->day, 29);
  for (const char* value :
       {"", "2024-02-29", "2023-02-29T00:00:00", "1900-02-29T00:00:00", "2024-00-01T00:00:00",
        "2024-13-01T00:00:00", "2024-01-00T00:00:00", "2024-04-31T00:00:00", "2024-01-01T24:00:00",
        "2024-01-01T00:60:00", "2024-01-01T00:00:60", "2024-01-01 00:00:00", "2024-1-01T00:00:00",
        "2024-01-01T 1:00:00", "2024-01-01T+1:00:00", "2024-01-01T00:00:00Z",
        "24-01-01T00:00:00"}) {
    EXPECT_NE(refusal({"run", "a", "--clock", value}), "") << value;
  }
}

TEST(Options, Outputs) {
  const TOptions options = parsed({"run", "a", "--screenshot", "s", "--midi", "m", "--wav", "w"});
  EXPECT_EQ(options.screenshot, "s");
  EXPECT_EQ(options.midi, "m");
  EXPECT_EQ(options.wav, "w");
  for (const char* option : {"--screenshot", "--midi", "--wav", "--start"}) {
    EXPECT_NE(refusal({"run", "a", option, ""}), "") << option;
  }
  EXPECT_NE(refusal({"play", "C", "--screenshot", "s"}), "");
  EXPECT_EQ(parsed({"play", "C", "--wav", "w", "--no-wait"}).wav, "w");
}

TEST(Options, LineNumbers) {
  const TOptions options =
      parsed({"renumber", "a", "--new", "5", "--old=7", "--step", "2147483647"});
  EXPECT_EQ(options.newLine, 5);
  EXPECT_EQ(options.oldLine, 7);
  EXPECT_EQ(options.step, 2147483647);
  for (const char* value : {"", "0", "-1", "x", "1x", "2147483648"}) {
    EXPECT_NE(refusal({"renumber", "a", "--step", value}), "") << value;
  }
  EXPECT_NE(refusal({"run", "a", "--new", "5"}), "");
}

}  // namespace
}  // namespace zoka
