quorvane_window(print
  SOURCES printing.h printing.cpp frm_printer_setup.h frm_printer_setup.cpp frm_sample_text.h frm_sample_text.cpp
  DEPENDS base_window settings_window Qt6::PrintSupport)
