# The dialogs on their own, without the component around them, and the programs that show them: one takes the
# pictures of docs/pictures, the other drives every dialog by window messages.
set(dialog_sources control_window.cpp dialog_metrics.cpp drop_down.cpp form_keys.cpp form_window.cpp frame_bar.cpp grid_cells.cpp
    grid_window.cpp handles.cpp named_schemes.cpp native_windows.cpp scheme_name_form.cpp simple_windows.cpp
    value_windows.cpp)
add_library(qor_native_dialogs STATIC ${dialog_sources})
target_compile_options(qor_native_dialogs PUBLIC -include ${CMAKE_CURRENT_SOURCE_DIR}/prelude.h)
target_link_libraries(qor_native_dialogs PUBLIC qor_library comctl32 gdi32 ole32 oleaut32 uuid)

file(GLOB play_sources CONFIGURE_DEPENDS tests/native_*.cpp ${CMAKE_SOURCE_DIR}/tests/support/*.cpp)
add_library(qor_native_play STATIC EXCLUDE_FROM_ALL ${play_sources})
target_include_directories(qor_native_play PUBLIC ${CMAKE_SOURCE_DIR}/tests)
target_link_libraries(qor_native_play PUBLIC qor_native_dialogs)

add_executable(dialog_pictures EXCLUDE_FROM_ALL pictures/main.cpp pictures/window_picture.cpp)
target_link_libraries(dialog_pictures PRIVATE qor_native_play gdiplus)
target_link_options(dialog_pictures PRIVATE -static -municode)
