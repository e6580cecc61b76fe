// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zor {

class Element;
class Form;

/// What a user does to an element or a window. The numbers and the text that belong to each are named behind
/// it.
enum class GestureKind {
    Click,       ///< on a window's empty area where no element is named
    DoubleClick, ///< its click is a gesture of its own inside it
    SecondClick, ///< makes a double click of a click that was told already
    Edit,        ///< text: the field's whole text, typed character by character
    Replace,     ///< text: the field's whole text, put there at once; first: the caret
    Enter,
    Press,       ///< text: the one key
    PlaceCaret,  ///< first: bytes in front of the caret
    ChooseEntry, ///< first: a list's position, from 0; text: the entry there
    ChooseKey,   ///< text: the key of a bar button's entry, the link of a document
    Tick,        ///< first: 1 ticks, 0 unticks
    Slide,       ///< first: the value
    StepUp,
    StepDown,
    TurnPage,  ///< first: the page, from 1
    PickRow,   ///< first: the row, from 0
    EditCell,  ///< first: the row, second: the column, both from 0; text: what was typed
    ClickCell, ///< first: the cell of a picture of cells
    Recall,    ///< first: how far, in lines kept before
    TakeFocus,
    Leave,
    Activate, ///< a window comes to the front
    Close,    ///< a window's close button
    Move,     ///< first: top, second: left, in twips
    Resize,   ///< first: height, second: width, in twips
};

/// A gesture that the user's door has accepted, as Desk tells it.
struct Gesture {
    GestureKind kind = GestureKind::Click;
    /// Holds for the time of the call alone.
    std::string_view text = {};
    double first = 0;
    double second = 0;

    // Filled in by the door.
    Form* form = nullptr;
    /// nullptr for a gesture on the window itself.
    Element* element = nullptr;
    /// How many gestures run around this one; 0 is an outermost one.
    int depth = 0;
    /// False for a step of the gesture around it. A gesture that comes while another one waits for the board
    /// runs inside that one and is the user's own all the same.
    bool byUser = true;
};

} // namespace zor
