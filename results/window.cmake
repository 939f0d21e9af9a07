quorvane_window(results
  SOURCES word_list_model.h word_list_model.cpp word_list_panel.h word_list_panel.cpp results_panel.h results_panel.cpp
          result_options_panel.h result_options_panel.cpp sort_panel.h sort_panel.cpp
          appearance_panel.h appearance_panel.cpp frm_info.h frm_info.cpp frm_random_disc.h frm_random_disc.cpp
  DEPENDS base_window settings_window search_window)
