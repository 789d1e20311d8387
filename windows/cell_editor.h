// CellEditor: the box in which the user types a grid's cell. It is open from the first character to the key
// or the press that leaves the cell; while another program has the keyboard it stays as it is.
#pragma once

#include <windows.h>

#include <string>

namespace qor::windows {

class DialogMetrics;

class CellEditor {
 public:
    class Owner {
     public:
        /// An arrow or page key that leaves the cell up or down.
        virtual void CellLeftBy(WPARAM key) = 0;
        /// The keyboard has gone to another window of the form.
        virtual void CellLeft() = 0;

     protected:
        ~Owner() = default;
    };

    /// A box in the window of a grid, not yet open.
    CellEditor(HWND grid, Owner& owner);
    CellEditor(const CellEditor&) = delete;
    CellEditor& operator=(const CellEditor&) = delete;
    ~CellEditor();

    bool IsOpen() const { return open_; }
    bool HasKeyboard() const { return GetFocus() == window_; }
    /// Opens with a text, the whole of it selected or the caret behind it, and takes the keyboard.
    void Open(const std::wstring& text, bool selected);
    /// Closes and gives the keyboard back to the grid; the text as it was typed.
    std::wstring Close();
    void TakeKeyboard() const { SetFocus(window_); }
    void Place(const RECT& cell, const DialogMetrics& metrics) const;
    void SetFont(HFONT font) const;

    void SetText(const std::wstring& text) const { SetWindowTextW(window_, text.c_str()); }
    void Type(wchar_t character) const { Send(WM_CHAR, character, 1); }
    void Paste() const { Send(WM_PASTE, 0, 0); }
    /// A text into the clipboard; the box must be closed.
    void Copy(const std::wstring& text) const;

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const {
        return SendMessageW(window_, message, wParam, lParam);
    }

    HWND window_;
    Owner& owner_;
    bool open_ = false;
};

}  // namespace qor::windows
