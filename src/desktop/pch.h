// SPDX-License-Identifier: MIT
// What nearly every file of the desktop ring includes anyway; parsed once.
#pragma once

#include <QtCore>
#include <QtGui>
#include <QtWidgets>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
