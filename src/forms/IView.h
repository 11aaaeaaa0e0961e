#pragma once

namespace alinhavo {

class TControl;
class TForm;
struct TDialog;

/// What shows the application to its user. Called on the session's thread; it only takes notes and shows them when the
/// event source is asked for the next event.
class IView {
public:
    virtual ~IView() = default;
    virtual void FormShown(TForm& form) = 0; ///< or brought to the front
    virtual void FormClosed(TForm& form) = 0; ///< neither it nor its controls are to be used again
    virtual void ControlChanged(TControl& control) = 0;
    virtual void FocusChanged(TForm& form) = 0;
    virtual void DialogOpened(TDialog& dialog) = 0;
    virtual void DialogChanged(TDialog& dialog) = 0; ///< the rows of a lookup are others
    virtual void DialogClosed(TDialog& dialog) = 0;
    virtual void BusyChanged(bool busy) = 0;
};

} // namespace alinhavo
