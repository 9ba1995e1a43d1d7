// The scripts of the shells, each in its shell where that is installed.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct Shell {
  const char* name;
  const char* script;  // prints the candidates for the line "$LINE"
};

void PrintTo(const Shell& shell, std::ostream* stream) {
  *stream << shell.name;
}

// Bash cuts the line as readline does; zsh is typed to on a terminal of its own, and lists what
// there is for two tabs.
const Shell shells[] = {
    {"bash",
     "source kelp-bdf.script\n"
     "COMP_LINE=$LINE COMP_POINT=${#LINE} COMP_WORDS=() rest=$LINE\n"
     "while [[ -n $rest ]]; do\n"
     "  [[ $rest =~ ^\\ *([=:]|[^ =:]+|$) ]]; COMP_WORDS+=(\"${BASH_REMATCH[1]}\")\n"
     "  rest=${rest:${#BASH_REMATCH[0]}}; [[ $rest != ' ' ]] || { COMP_WORDS+=(''); rest=; }\n"
     "done\n"
     "COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
     "_kelp_bdf kelp-bdf; printf '%s\\n' \"${COMPREPLY[@]}\"\n"},
    {"zsh",
     "zmodload zsh/zpty || exit 77\n"
     "zpty -b shell zsh -f -i || exit 77\n"
     "zpty -w shell 'PS1=; LISTMAX=1000; autoload -Uz compinit; compinit -u -D'\n"
     "zpty -w shell 'zstyle \":completion:*\" list-prompt \"\"; setopt auto_list no_beep'\n"
     "zpty -w shell 'source ./kelp-bdf.script; echo re\"\"ady'\n"
     "zpty -r -m shell out '*ready*'\n"
     "zpty -w -n shell \"$LINE\"$'\\t\\t'\n"
     "for i in {1..100}; do sleep 0.1; zpty -r -t shell more && text+=$more\n"
     "  [[ $text != *$WANTED* ]] || break; done\n"
     "print -r -- \"$text\"\n"},
    {"fish", "source kelp-bdf.script; complete -C \"$LINE\"\n"},
};

class Completing : public ::testing::TestWithParam<Shell> {
 protected:
  Outcome complete(const std::string& line, const std::string& wanted) {
    const std::string name = GetParam().name;
    program.write("ask", GetParam().script);
    program.set_variable("LINE", line);
    program.set_variable("WANTED", wanted);
    program.set_variable("TERM", "xterm");
    return program.run_in_shell("command -v " + name +
                                " >/dev/null || exit 77\n"
                                "HOME=$PWD PATH=$(dirname \"$KELP_BDF\"):$PATH; export HOME PATH\n"
                                "kelp-bdf completion " +
                                name + " >kelp-bdf.script\n" + name +
                                (name == "fish"  ? " --no-config"
                                 : name == "zsh" ? " -f"
                                                 : " --norc") +
                                " ask");
  }

  Program program;
};

TEST_P(Completing, OffersOptionsChoicesNamesAndFiles) {
  program.write("water.inp", "$scf\n$end\n");
  for (const auto& [line, wanted, other] : {
           std::tuple("kelp-bdf check --summ", "--summary", "--strict"),
           {"kelp-bdf check --format=js", "json", "sarif"},
           {"kelp-bdf get scf.guess wat", "water.inp", "check"},
           {"kelp-bdf get scf.gue", "scf.guess", "scf.charge"},
           {"kelp-bdf set water.inp scf.guess=hc", "hcore", "huckel"},
           {"kelp-bdf expl", "explain", "check"},
       }) {
    const Outcome outcome = complete(line, wanted);
    if (outcome.status == 77) {
      GTEST_SKIP() << GetParam().name << " is not installed";
    }
    EXPECT_THAT(outcome.out, HasSubstr(wanted)) << line << '\n' << outcome.err;
    EXPECT_THAT(outcome.out, Not(HasSubstr(other))) << line;
  }
}

INSTANTIATE_TEST_SUITE_P(Shells, Completing, ::testing::ValuesIn(shells),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace kelp::test
