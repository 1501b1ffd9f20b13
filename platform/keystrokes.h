#pragma once
// Key strokes sent to the focused control as if they had been typed.

#include <string_view>

class KeyStrokes {
  public:
    KeyStrokes() = default;
    KeyStrokes(const KeyStrokes&) = delete;
    KeyStrokes& operator=(const KeyStrokes&) = delete;
    virtual ~KeyStrokes() = default;

    /// "{RIGHT}", "{LEFT}", "{UP}", "{DOWN}", "{TAB}", "{ENTER}", "{ESC}", or characters. Returns
    /// when the control has processed them. Throws Error InvalidProcedureCall
    /// for a name it does not know.
    virtual void Send(std::string_view keys) = 0;
};

class FocusKeyStrokes final : public KeyStrokes {
  public:
    void Send(std::string_view keys) override;
};
