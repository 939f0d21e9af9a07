quorvane_window(app
  SOURCES services.h session.h command_table.h command_table.cpp main_window.h main_window.cpp
          colour_scheme.h colour_scheme.cpp
          commands.h search_commands.cpp file_commands.cpp option_commands.cpp
          start_up.h start_up.cpp shut_down.h shut_down.cpp single_instance.h single_instance.cpp
          frm_amend.h frm_amend.cpp frm_about.h frm_about.cpp frm_help.h frm_help.cpp
  DEPENDS base_window settings_window lexicon_window search_window results_window print_window lookup_window)
target_include_directories(app_window PUBLIC ${CMAKE_BINARY_DIR}/include/app)

add_executable(quorvane app/quorvane_start.cpp)
target_link_libraries(quorvane PRIVATE app_window quorvane_warnings)
add_custom_command(TARGET quorvane POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${PROJECT_SOURCE_DIR}/app/Quorvane.hlp
          ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Quorvane.hlp)
