quorvane_window(base SOURCES door.h door.cpp qt_text.h qt_text.cpp click_label_panel.h click_label_panel.cpp)
