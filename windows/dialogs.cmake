# The dialogs on their own, without the component around them, and the programs that show them: one takes the
# pictures of docs/pictures, the other drives every dialog by window messages.
set(dialog_sources cell_editor.cpp control_window.cpp dialog_metrics.cpp drop_down.cpp form_keys.cpp form_window.cpp frame_bar.cpp grid_cells.cpp
    grid_window.cpp handles.cpp host_windows.cpp named_schemes.cpp native_windows.cpp scheme_name_form.cpp simple_windows.cpp
    value_windows.cpp working_window.cpp)
add_library(qor_native_dialogs STATIC ${dialog_sources})
begin_with_prelude(qor_native_dialogs <platform/form.h>)
target_link_libraries(qor_native_dialogs PUBLIC qor_library comctl32 gdi32 ole32 oleaut32 uuid)

# The test support of the project, with a person's hands on true windows.
set(root ${CMAKE_SOURCE_DIR})
file(GLOB play_sources CONFIGURE_DEPENDS ${root}/tests/windows/native/*.cpp ${root}/tests/support/*.cpp)
list(FILTER play_sources EXCLUDE REGEX "_test\\.cpp$")
add_library(qor_native_play STATIC EXCLUDE_FROM_ALL ${play_sources})
begin_with_prelude(qor_native_play)
target_include_directories(qor_native_play PUBLIC ${root}/tests)
target_link_libraries(qor_native_play PUBLIC qor_native_dialogs)

add_executable(dialog_pictures EXCLUDE_FROM_ALL pictures/main.cpp pictures/window_picture.cpp)
begin_with_prelude(dialog_pictures)
target_link_libraries(dialog_pictures PRIVATE qor_native_play gdiplus)
target_link_options(dialog_pictures PRIVATE -static -municode)

# They run as 64-bit programs: this is the wine that there is beside the other.
if(NOT CMAKE_SIZEOF_VOID_P EQUAL 8)
    return()
endif()

# The tests of the dialogs that run without a screen, run on the screen; and those of what only the screen has.
set(googletest /usr/src/googletest)
add_library(qor_googletest STATIC EXCLUDE_FROM_ALL ${googletest}/googletest/src/gtest-all.cc
    ${googletest}/googlemock/src/gmock-all.cc ${googletest}/googlemock/src/gmock_main.cc)
target_include_directories(qor_googletest PRIVATE ${googletest}/googletest ${googletest}/googlemock)
target_include_directories(qor_googletest SYSTEM PUBLIC ${googletest}/googletest/include ${googletest}/googlemock/include)
target_compile_options(qor_googletest PRIVATE -w)

file(GLOB native_tests CONFIGURE_DEPENDS ${root}/tests/windows/native/*_test.cpp)
foreach(name dialogs/date_range_guard dialogs/multi_level_group dialogs/plain_dialog
        dialogs/plain_dialog_pickers dialogs/plain_dialog_schemes dialogs/scheme_dialog dialogs/scheme_fields
        progress/bar reports/arap/detail reports/arap/income_expense_detail reports/arap/summary
        reports/arap/summary_drill_down reports/income/category_detail reports/income/category_summary
        reports/income/category_summary_detail reports/income/category_summary_dialog reports/income/level_boxes
        reports/income/settlement_list reports/other/ageing reports/other/ageing_dialog reports/other/cash
        reports/other/cash_dialog reports/other/credit_warning reports/other/matching_balance reports/other/statement
        reports/other/statement_dialog)
    list(APPEND native_tests ${root}/tests/${name}_test.cpp)
endforeach()
add_executable(qor_native_tests ${native_tests})
target_compile_options(qor_native_tests PRIVATE -O0)
begin_with_prelude(qor_native_tests <gmock/gmock.h> <gtest/gtest.h> <library.h> <windows/native/screen.h>)
target_link_libraries(qor_native_tests PRIVATE qor_native_play qor_googletest)
target_link_options(qor_native_tests PRIVATE -static -s)
