#pragma once

#include "platform/WindowHandle.h"

#include <QString>
#include <QVector>

namespace norvane {

/// A window of the program, as the rest of the program walks over them: by name.
class Form
{
public:
    virtual ~Form();

    /// "frmSticky", "frmMain", …: the same for all windows of a class.
    virtual QString formName() const = 0;
    virtual WindowHandle hWnd() const = 0;
    /// Runs the form's unload steps, takes it from the screen and from the list of forms, and
    /// deletes it (when control is back at the event loop). The form must not be used afterwards.
    virtual void unload() = 0;
};

/// The loaded forms, in the order in which they were loaded. Owns none of them: a form adds itself
/// when it is made and removes itself when it is unloaded.
class FormList
{
public:
    void add(Form *form);
    void remove(Form *form);

    /// A copy, since unloading a form changes the list. Use contains() before touching a form that
    /// another form's unload may have taken along.
    QVector<Form *> all() const { return m_forms; }
    /// All forms of a name, case not counting.
    QVector<Form *> named(const QString &name) const;
    bool contains(const Form *form) const;
    /// The form with that window, or nullptr.
    Form *byHwnd(WindowHandle window) const;

    /// Whether a form of that name is loaded; case does not count.
    bool FormIsLoaded(const QString &name) const;

private:
    QVector<Form *> m_forms;
};

} // namespace norvane
