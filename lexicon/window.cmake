quorvane_window(lexicon
  SOURCES frm_lex_problem.h frm_lex_problem.cpp frm_wait.h frm_wait.cpp frm_new_lex.h frm_new_lex.cpp
          frm_lex_name.h frm_lex_name.cpp
  DEPENDS base_window settings_window)
