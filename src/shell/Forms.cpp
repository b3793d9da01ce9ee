#include "shell/Forms.h"

#include <algorithm>

namespace norvane {

Form::~Form() = default;

void FormList::add(Form *form)
{
    if (!m_forms.contains(form))
        m_forms.append(form);
}

void FormList::remove(Form *form)
{
    m_forms.removeOne(form);
}

QVector<Form *> FormList::named(const QString &name) const
{
    QVector<Form *> result;
    std::copy_if(m_forms.begin(), m_forms.end(), std::back_inserter(result),
                 [&](const Form *form) { return form->formName().compare(name, Qt::CaseInsensitive) == 0; });
    return result;
}

bool FormList::contains(const Form *form) const
{
    return std::find(m_forms.begin(), m_forms.end(), form) != m_forms.end();
}

Form *FormList::byHwnd(WindowHandle window) const
{
    const auto found = std::find_if(m_forms.begin(), m_forms.end(),
                                    [&](const Form *form) { return form->hWnd() == window; });
    return found == m_forms.end() ? nullptr : *found;
}

bool FormList::FormIsLoaded(const QString &name) const
{
    return !named(name).isEmpty();
}

} // namespace norvane
