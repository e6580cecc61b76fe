// SPDX-License-Identifier: MIT
#include "transcript/played_board.h"

#include "link/connect.h"
#include "shell/main_window.h"

#include <algorithm>

namespace zor::transcript {

namespace {

/// A transcript may let its board go on purpose.
bool letsGo(const Statement& statement) {
    return std::ranges::any_of(statement.tokens, [](const Token& token) {
        return token.text == "main.Disconnect" || token.text == "main.LoadboardList" || token.text == "main";
    });
}

} // namespace

PlayedBoard::PlayedBoard(MainWindow& program)
    : main(program)
    , closing(program.bench().connect->portClosed.subscribe([this] {
        if (portClosed) {
            portClosed();
        }
    })) {}

bool PlayedBoard::connected() const {
    return main.linkState() == LinkState::Connected || main.linkState() == LinkState::DataMode;
}

bool PlayedBoard::searching() const {
    LinkState state = main.linkState();
    return state == LinkState::Searching || main.bench().link.CommState() != 0 ||
           (state == LinkState::Choosing && main.linkBar.LoadboardList.entries().size() == 1) ||
           (state != LinkState::Choosing && state != LinkState::DataMode && !main.menu.View.active());
}

void PlayedBoard::carriedOut(const Statement& statement) {
    wasThere = connected() && !letsGo(statement);
}

std::string PlayedBoard::hindrance() const {
    if (main.isClosed() || main.loop().leaving()) {
        return "the program was closed";
    }
    return wasThere && !connected() ? "the board is no longer connected" : std::string();
}

} // namespace zor::transcript
