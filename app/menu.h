// The menus of the bar.
#pragma once

namespace quorvane {

enum class Menu { File, Select, WordType, Options, Colours, Workbench, Help };

}  // namespace quorvane
