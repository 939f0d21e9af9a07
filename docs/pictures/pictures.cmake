# The program that draws these pictures; draw.sh builds and runs it.
find_package(Qt6 6.4 COMPONENTS Test)
if(Qt6Test_FOUND)
  add_executable(make_pictures EXCLUDE_FROM_ALL docs/pictures/make_pictures.cpp)
  target_link_libraries(make_pictures PRIVATE app_window Qt6::Test quorvane_warnings)
endif()
