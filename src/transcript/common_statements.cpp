// SPDX-License-Identifier: MIT
#include "transcript/statements.h"

namespace zor::transcript {

namespace {

void answer(Scene& scene, const Arguments& arguments) {
    ScriptedDialogs& dialogs = scene.dialogs();
    if (arguments.isWord(0, "file")) {
        arguments.expectCount(2, 2);
        dialogs.files.emplace_back(scene.file(arguments.text(1)).string());
        return;
    }
    arguments.expectCount(1, 1);
    if (arguments.isWord(0, "cancel")) {
        dialogs.files.emplace_back(std::nullopt);
    } else if (arguments.isWord(0, "yes")) {
        dialogs.answers.push_back(Answer::Yes);
    } else if (arguments.isWord(0, "no")) {
        dialogs.answers.push_back(Answer::No);
    } else {
        throw Failure("expected file, cancel, yes or no, found " + arguments.text(0));
    }
}

void run(Scene& scene, const Arguments& arguments) {
    scene.letPass(arguments.time(0));
}

// clang-format off
constexpr StatementRow rows[] = {
    {"answer", 1, 2, answer},
    {"run",    1, 1, run},
    {"linger", 1, 1, [](Scene& scene, const Arguments& a) { scene.linger = a.time(0); }},
    {"clock",  0, 0, [](Scene& scene, const Arguments&) { scene.clockMark = scene.loop().now(); }},
};
// clang-format on

} // namespace

std::span<const StatementRow> commonStatements() {
    return rows;
}

} // namespace zor::transcript
