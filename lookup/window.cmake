quorvane_window(lookup
  SOURCES lookup_panel.h lookup_panel.cpp frm_weblink_choice.h frm_weblink_choice.cpp
  DEPENDS base_window settings_window)
