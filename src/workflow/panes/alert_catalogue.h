// The alerts of the library: short modal questions on top of a pane, each a view description of its own.
#pragma once

#include <string_view>

namespace brixen::pvn::pvn_workflow {

// "Quit the application?" First button: quit. Second: stay.
inline constexpr char kAlertQuit[] = "QuitAlert";

struct AlertEntry {
    std::string_view name;
    std::string_view view; // name of its view description
    bool isError;          // shows the error picture
};

// The entry of an alert; one that the catalogue does not know is no error and is its own view's name.
AlertEntry FindAlert(std::string_view name);

} // namespace brixen::pvn::pvn_workflow
