quorvane_window(search
  SOURCES pattern_panel.h pattern_panel.cpp length_panel.h length_panel.cpp lists_panel.h lists_panel.cpp
          frm_change_list.h frm_change_list.cpp
  DEPENDS base_window settings_window lexicon_window)
