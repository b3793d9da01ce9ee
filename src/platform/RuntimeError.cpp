#include "platform/RuntimeError.h"

namespace norvane {

RuntimeError::RuntimeError(int number, QString description, QString source)
    : m_number(number), m_description(std::move(description)), m_source(std::move(source)),
      m_what(m_description.toUtf8())
{
}

} // namespace norvane
