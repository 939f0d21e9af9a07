quorvane_window(settings
  SOURCES ini_store.h ini_store.cpp light_palette.h light_palette.cpp swatch_panel.h swatch_panel.cpp
          frm_colour_choice.h frm_colour_choice.cpp
  DEPENDS base_window)
