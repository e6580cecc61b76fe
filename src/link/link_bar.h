// SPDX-License-Identifier: MIT
#pragma once

#include "elements/button.h"
#include "elements/label.h"
#include "elements/list_box.h"
#include "elements/menu.h"
#include "elements/text_field.h"

namespace zor {

/// The elements of the main window's second and third bar, by which the user sees and steers the link: the
/// search's end, the choice of a board, the data selector. They belong to the main window.
struct LinkBar {
    explicit LinkBar(Form& main)
        : Toolbar2(main, "Toolbar2")
        , Connect(main, Toolbar2, "Connect", "Connect")
        , Disconnect(main, Toolbar2, "Disconnect", "Disconnect")
        , CommStatus(main, "CommStatus", "No comm.", TextField::Access::ReadOnly)
        , Text2(main, "Text2", "Connected Board:")
        , LoadBoard(main, "LoadBoard", "", TextField::Access::ReadOnly)
        , LoadboardList(main, "LoadboardList", {}, "Please select...")
        , Toolbar3(main, "Toolbar3")
        , Text1(main, "Text1", "Data Selector:")
        , CB_Mode(main, "CB_Mode")
        , Reconnect(main, "Reconnect", "Reconnect") {
        for (Element* element : {static_cast<Element*>(&CommStatus), static_cast<Element*>(&Text2),
                                 static_cast<Element*>(&LoadBoard), static_cast<Element*>(&LoadboardList)}) {
            element->setContainer(&Toolbar2);
        }
        Text1.setContainer(&Toolbar3);
        CB_Mode.setContainer(&Toolbar3);
        CommStatus.setTip("Comport status");
        Reconnect.setTip("Opens the same port again and sets the board up as before");
    }

    Bar Toolbar2;
    BarButton Connect;
    BarButton Disconnect;
    TextField CommStatus;
    Label Text2;
    TextField LoadBoard;
    ListBox LoadboardList;
    Bar Toolbar3;
    Label Text1;
    ListBox CB_Mode;
    /// At the foot of the window, beside its notice: takes a board up again that was pulled out and is back.
    Button Reconnect;
};

} // namespace zor
