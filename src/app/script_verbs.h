// The script language as tables of verbs: each row names a verb, its arguments and what it
// does. The runner parses and checks a whole line against its row before anything changes, and
// the README's tables are written from the same rows.
#pragma once

#include "app/script_runner.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

enum class ArgKind {
    Word,    // one word without blanks
    Number,  // a decimal number
    Integer, // a whole number
    Text,    // the rest of the line, inner blanks kept; may be empty when optional
};

struct ArgRule {
    ArgKind kind;
    bool optional = false;
};

// The arguments of one line: their texts, and their values for numbers.
struct ScriptArgs {
    std::vector<std::string> text;
    std::vector<double> number;
    bool Has(std::size_t i) const { return i < text.size(); }
    int Int(std::size_t i) const { return static_cast<int>(number[i]); }
};

// What a line in a dialog acts on.
struct DialogLine {
    ScriptSession &session;
    Dialog &dialog;
};

template <typename Target> struct Verb {
    const char *name;
    const char *usage;  // as the README shows it
    const char *effect; // as the README explains it
    std::vector<ArgRule> args;
    // False when the line names what does not exist or a value out of its range; it has then
    // changed nothing.
    bool (*run)(Target &, const ScriptArgs &);
};

const std::vector<Verb<ScriptSession>> &WindowVerbs();
const std::vector<Verb<DialogLine>> &DialogVerbs();

// The words of a line split at blanks and tabs, then checked against the arguments of a verb.
std::optional<ScriptArgs> ParseArgs(std::string_view rest, std::span<const ArgRule> args);
// The verb word and the rest of a line.
std::pair<std::string_view, std::string_view> SplitVerb(std::string_view line);

// Runs one line of the window's language or of an open dialog's. False when the line is not
// part of the language or could not be done.
bool RunWindowLine(ScriptSession &session, std::string_view line);
bool RunDialogLine(ScriptSession &session, Dialog &dialog, std::string_view line);

// The two tables of the README, from the rows.
std::string ScriptLanguageTables();

} // namespace vorna
