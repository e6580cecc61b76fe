// SPDX-License-Identifier: MIT
#pragma once

#include "transcript_runner/world.h"

namespace zor::testing {

// The register chip on a board's bus, and the database of registers.

/// `board N registers`, `board N register AA VV`
void fitRegisters(VirtualSeat& seat, const Arguments& arguments);
void setRegister(VirtualSeat& seat, const Arguments& arguments);
/// `board N fifo rx "HEX"`, `board N fifo at TX RX`
void setFifo(VirtualSeat& seat, const Arguments& arguments);

/// `database`: makes the file from the rows behind it.
void makeDatabase(World& world, const Arguments& arguments);
/// `asked "SQL"`
void expectAsked(World& world, const Arguments& arguments);

/// `register N AA VV`, `fifo N tx "HEX"`
void expectRegister(World& world, const Arguments& arguments);
void expectFifo(World& world, const Arguments& arguments);

} // namespace zor::testing
