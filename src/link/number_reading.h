// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>

namespace zor {

struct Bench;
class TextField;

/// Lets each of these number fields say at the foot, behind its commit, if its text was taken only as far as
/// it is a number ("314x5"). Called once their commits are set.
void tellReadingsOf(Bench& bench, std::initializer_list<TextField*> fields);

} // namespace zor
