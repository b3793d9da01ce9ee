#include "richtext/rtf/object_groups.h"

#include "richtext/rtf/text_escapes.h"

namespace norvane::rtf {

QByteArray objectGroupBegin(const EmbeddedObject &object,
                            const std::function<QByteArray(const QByteArray &)> &piece)
{
    QByteArray group = "{\\object" + object.words;
    if (!object.className.isEmpty()) {
        group += "{\\*\\objclass";
        bool afterWord = true;
        appendEscaped(group, object.className, afterWord);
        group += '}';
    }
    group += piece(object.kept);
    if (!object.data.isEmpty()) {
        group += "{\\*\\objdata";
        appendHexLines(group, object.data);
        group += '}';
    }
    return group + "{\\result";
}

} // namespace norvane::rtf
