#include "XClient.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <xcb/shape.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

namespace norvane::test {

namespace {

constexpr int kLookAgainMs = 20;
constexpr int kListedWindows = 12;
constexpr int kBetweenKeysMs = 8; // as fast as a person can be
constexpr int kStepMs = 12;       // of a hand with the mouse

/// Lets the event loop run.
void pause(int milliseconds)
{
    QEventLoop turn;
    QTimer::singleShot(milliseconds, &turn, &QEventLoop::quit);
    turn.exec();
}

} // namespace

bool waitFor(const std::function<bool()> &condition, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return condition();
        pause(kLookAgainMs);
    }
    return true;
}

namespace {

struct Free
{
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply> using Owned = std::unique_ptr<Reply, Free>;

constexpr xcb_keysym_t kShift = 0xffe1;

xcb_keysym_t namedKey(const QString &name)
{
    static const QHash<QString, xcb_keysym_t> names{
        {QStringLiteral("ctrl"), 0xffe3},      {QStringLiteral("alt"), 0xffe9},
        {QStringLiteral("shift"), kShift},     {QStringLiteral("Return"), 0xff0d},
        {QStringLiteral("Escape"), 0xff1b},    {QStringLiteral("Tab"), 0xff09},
        {QStringLiteral("Left"), 0xff51},      {QStringLiteral("Up"), 0xff52},
        {QStringLiteral("Insert"), 0xff63},    {QStringLiteral("Delete"), 0xffff},
        {QStringLiteral("Right"), 0xff53},     {QStringLiteral("Down"), 0xff54},
        {QStringLiteral("End"), 0xff57},       {QStringLiteral("Home"), 0xff50},
        {QStringLiteral("BackSpace"), 0xff08}, {QStringLiteral("Menu"), 0xff67}};
    const auto found = names.find(name);
    return found != names.end() ? *found : static_cast<xcb_keysym_t>(name.at(0).unicode());
}

} // namespace

struct XClient::Connection
{
    xcb_connection_t *c = nullptr;
    xcb_window_t root = 0;
    QRect screen;
    xcb_key_symbols_t *symbols = nullptr;

    xcb_atom_t atom(const char *name) const
    {
        const QByteArray text(name);
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            c, xcb_intern_atom(c, 0, static_cast<uint16_t>(text.size()), text.constData()), nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    QByteArray property(xcb_window_t window, xcb_atom_t name) const
    {
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            c, xcb_get_property(c, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 16), nullptr));
        if (!reply)
            return {};
        return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                          xcb_get_property_value_length(reply.get()));
    }

    QVector<uint32_t> numbers(xcb_window_t window, const char *name) const
    {
        const QByteArray bytes = property(window, atom(name));
        QVector<uint32_t> result(bytes.size() / 4);
        std::copy_n(bytes.constData(), result.size() * 4, reinterpret_cast<char *>(result.data()));
        return result;
    }

    void tellRoot(xcb_window_t window, const char *type, const QVector<uint32_t> &data) const
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = atom(type);
        for (int i = 0; i < data.size() && i < 5; ++i)
            event.data.data32[i] = data[i];
        xcb_send_event(c, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char *>(&event));
        xcb_flush(c);
    }

    void fake(uint8_t type, uint8_t detail, const QPoint &position = {}) const
    {
        xcb_test_fake_input(c, type, detail, XCB_CURRENT_TIME, root, static_cast<int16_t>(position.x()),
                            static_cast<int16_t>(position.y()), 0);
        // A round trip, so that one thing has happened before the next begins.
        std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    }

    /// Key code of a keysym and whether Shift is needed for it.
    std::pair<xcb_keycode_t, bool> keyOf(xcb_keysym_t symbol) const
    {
        const Owned<xcb_keycode_t> codes(xcb_key_symbols_get_keycode(symbols, symbol));
        if (!codes || codes.get()[0] == XCB_NO_SYMBOL)
            return {0, false};
        const xcb_keycode_t code = codes.get()[0];
        return {code, xcb_key_symbols_get_keysym(symbols, code, 0) != symbol};
    }
};

XClient::XClient(const QString &display) : m_x(std::make_unique<Connection>())
{
    m_x->c = xcb_connect(display.toLatin1().constData(), nullptr);
    if (xcb_connection_has_error(m_x->c) != 0)
        return;
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_x->c)).data;
    m_x->root = screen->root;
    m_x->screen = QRect(0, 0, screen->width_in_pixels, screen->height_in_pixels);
    m_x->symbols = xcb_key_symbols_alloc(m_x->c);
}

XClient::~XClient()
{
    if (m_x->symbols != nullptr)
        xcb_key_symbols_free(m_x->symbols);
    xcb_disconnect(m_x->c);
}

bool XClient::isConnected() const
{
    return xcb_connection_has_error(m_x->c) == 0;
}

bool XClient::hasWindowManager() const
{
    return !m_x->numbers(m_x->root, "_NET_SUPPORTING_WM_CHECK").isEmpty();
}

QVector<xcb_window_t> XClient::clients() const
{
    return m_x->numbers(m_x->root, "_NET_CLIENT_LIST");
}

QVector<xcb_window_t> XClient::stacking() const
{
    return m_x->numbers(m_x->root, "_NET_CLIENT_LIST_STACKING");
}

xcb_window_t XClient::findClient(const QString &part, const QString &wmClass) const
{
    const QVector<xcb_window_t> all = clients();
    for (const xcb_window_t window : all) {
        if (title(window).contains(part, Qt::CaseInsensitive) &&
            this->wmClass(window).contains(wmClass, Qt::CaseInsensitive))
            return window;
    }
    return 0;
}

QVector<xcb_window_t> XClient::clientsOfProcess(qint64 processId) const
{
    QVector<xcb_window_t> result;
    const QVector<xcb_window_t> all = clients();
    for (const xcb_window_t window : all) {
        if (this->processId(window) == processId)
            result.append(window);
    }
    return result;
}

xcb_window_t XClient::menuOfProcess(qint64 processId) const
{
    const xcb_atom_t toolTip = m_x->atom("_NET_WM_WINDOW_TYPE_TOOLTIP");
    const Owned<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(m_x->c, xcb_query_tree(m_x->c, m_x->root), nullptr));
    if (!tree)
        return 0;
    // Framed windows are not the root's own children: what is one shows itself past the window manager.
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        if (this->processId(children[i]) == processId && isViewable(children[i]) &&
            !m_x->numbers(children[i], "_NET_WM_WINDOW_TYPE").contains(toolTip))
            return children[i];
    }
    return 0;
}

xcb_window_t XClient::activeWindow() const
{
    return m_x->numbers(m_x->root, "_NET_ACTIVE_WINDOW").value(0);
}

QString XClient::title(xcb_window_t window) const
{
    const QByteArray name = m_x->property(window, m_x->atom("_NET_WM_NAME"));
    return QString::fromUtf8(name.isEmpty() ? m_x->property(window, XCB_ATOM_WM_NAME) : name);
}

QString XClient::wmClass(xcb_window_t window) const
{
    return QString::fromLatin1(m_x->property(window, XCB_ATOM_WM_CLASS).replace('\0', ' ')).trimmed();
}

qint64 XClient::processId(xcb_window_t window) const
{
    return m_x->numbers(window, "_NET_WM_PID").value(0);
}

xcb_window_t XClient::transientFor(xcb_window_t window) const
{
    return m_x->numbers(window, "WM_TRANSIENT_FOR").value(0);
}

QRect XClient::geometry(xcb_window_t window) const
{
    const auto size = xcb_get_geometry(m_x->c, window);
    const auto place = xcb_translate_coordinates(m_x->c, window, m_x->root, 0, 0);
    const Owned<xcb_get_geometry_reply_t> g(xcb_get_geometry_reply(m_x->c, size, nullptr));
    const Owned<xcb_translate_coordinates_reply_t> p(xcb_translate_coordinates_reply(m_x->c, place, nullptr));
    return g && p ? QRect(p->dst_x, p->dst_y, g->width, g->height) : QRect();
}

QRect XClient::geometryInShadow(xcb_window_t window) const
{
    const QVector<uint32_t> extents = m_x->numbers(window, "_GTK_FRAME_EXTENTS");
    const auto extent = [&](int side) { return static_cast<int>(extents.value(side)); };
    return geometry(window).marginsRemoved({extent(0), extent(2), extent(1), extent(3)});
}

bool XClient::isViewable(xcb_window_t window) const
{
    const Owned<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(m_x->c, xcb_get_window_attributes(m_x->c, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

QVector<QRect> XClient::shape(xcb_window_t window) const
{
    const Owned<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
        m_x->c, xcb_shape_get_rectangles(m_x->c, window, XCB_SHAPE_SK_BOUNDING), nullptr));
    QVector<QRect> rects;
    if (!reply)
        return rects;
    const xcb_rectangle_t *rectangles = xcb_shape_get_rectangles_rectangles(reply.get());
    for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++i)
        rects.append(QRect(rectangles[i].x, rectangles[i].y, rectangles[i].width, rectangles[i].height));
    return rects;
}

bool XClient::isSeen(xcb_window_t window) const
{
    if (!isViewable(window))
        return false;
    const QRect whole({}, geometry(window).size());
    const QVector<QRect> parts = shape(window);
    return std::any_of(parts.begin(), parts.end(), [&](const QRect &part) { return part.intersects(whole); });
}

bool XClient::exists(xcb_window_t window) const
{
    const Owned<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(m_x->c, xcb_get_window_attributes(m_x->c, window), nullptr));
    return reply != nullptr;
}

int XClient::desktopOf(xcb_window_t window) const
{
    return static_cast<int>(m_x->numbers(window, "_NET_WM_DESKTOP").value(0));
}

void XClient::activate(xcb_window_t window)
{
    m_x->tellRoot(window, "_NET_ACTIVE_WINDOW", {2, 0, 0});
}

void XClient::minimise(xcb_window_t window)
{
    m_x->tellRoot(window, "WM_CHANGE_STATE", {3});
}

void XClient::closeWindow(xcb_window_t window)
{
    m_x->tellRoot(window, "_NET_CLOSE_WINDOW", {0, 2});
}

void XClient::moveResize(xcb_window_t window, const QRect &rect)
{
    m_x->tellRoot(window, "_NET_MOVERESIZE_WINDOW",
                  {10u | 0xfu << 8 | 2u << 12, static_cast<uint32_t>(rect.x()),
                   static_cast<uint32_t>(rect.y()), static_cast<uint32_t>(rect.width()),
                   static_cast<uint32_t>(rect.height())});
}

void XClient::setMaximised(xcb_window_t window, bool on)
{
    m_x->tellRoot(window, "_NET_WM_STATE",
                  {on ? 1u : 0u, m_x->atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                   m_x->atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2});
}

void XClient::moveToDesktop(xcb_window_t window, int desktop)
{
    m_x->tellRoot(window, "_NET_WM_DESKTOP", {static_cast<uint32_t>(desktop), 2});
}

void XClient::goToDesktop(int desktop)
{
    m_x->tellRoot(m_x->root, "_NET_CURRENT_DESKTOP", {static_cast<uint32_t>(desktop), 0});
}

int XClient::currentDesktop() const
{
    return static_cast<int>(m_x->numbers(m_x->root, "_NET_CURRENT_DESKTOP").value(0));
}

bool XClient::isTaken(const QString &combination) const
{
    static const QHash<QString, uint16_t> masks{{QStringLiteral("ctrl"), XCB_MOD_MASK_CONTROL},
                                                {QStringLiteral("alt"), XCB_MOD_MASK_1},
                                                {QStringLiteral("shift"), XCB_MOD_MASK_SHIFT}};
    QStringList names = combination.split(QLatin1Char('+'));
    const xcb_keycode_t code = m_x->keyOf(namedKey(names.takeLast())).first;
    uint16_t modifiers = 0;
    for (const QString &name : std::as_const(names))
        modifiers = static_cast<uint16_t>(modifiers | masks.value(name));
    // With the server to itself, so that nobody else finds the key taken in the meantime.
    xcb_grab_server(m_x->c);
    const auto grab =
        xcb_grab_key_checked(m_x->c, 0, m_x->root, modifiers, code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_key(m_x->c, code, m_x->root, modifiers);
    xcb_ungrab_server(m_x->c);
    const Owned<xcb_generic_error_t> error(xcb_request_check(m_x->c, grab));
    return error != nullptr;
}

void XClient::press(const QString &combination)
{
    const QStringList names = combination.split(QLatin1Char('+'));
    for (const QString &name : names)
        m_x->fake(XCB_KEY_PRESS, m_x->keyOf(namedKey(name)).first);
    pause(kBetweenKeysMs);
    for (auto name = names.rbegin(); name != names.rend(); ++name)
        m_x->fake(XCB_KEY_RELEASE, m_x->keyOf(namedKey(*name)).first);
}

void XClient::key(const QString &name, bool down)
{
    m_x->fake(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, m_x->keyOf(namedKey(name)).first);
}

void XClient::type(const QString &text)
{
    const xcb_keycode_t shift = m_x->keyOf(kShift).first;
    for (const QChar character : text) {
        const auto [code, shifted] =
            m_x->keyOf(character == QLatin1Char('\n') ? 0xff0d : character.unicode());
        if (shifted)
            m_x->fake(XCB_KEY_PRESS, shift);
        m_x->fake(XCB_KEY_PRESS, code);
        m_x->fake(XCB_KEY_RELEASE, code);
        if (shifted)
            m_x->fake(XCB_KEY_RELEASE, shift);
        // Nobody types faster, and busy programs lose keys that come closer together.
        pause(kBetweenKeysMs);
    }
}

void XClient::moveMouse(const QPoint &position)
{
    m_x->fake(XCB_MOTION_NOTIFY, 0, position);
}

void XClient::button(int number, bool down)
{
    m_x->fake(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<uint8_t>(number));
}

void XClient::click(const QPoint &position, int number)
{
    moveMouse(position);
    button(number, true);
    button(number, false);
}

void XClient::carry(const QPoint &from, const QPoint &to)
{
    constexpr int kSteps = 24;
    moveMouse(from);
    pause(kStepMs);
    button(1, true);
    for (int step = 1; step <= kSteps; ++step) {
        pause(kStepMs);
        moveMouse(from + (to - from) * step / kSteps);
    }
}

QString XClient::whatIsThere() const
{
    QString lines =
        QStringLiteral("active window 0x%1, workspace %2\n").arg(activeWindow(), 0, 16).arg(currentDesktop());
    for (const xcb_window_t client : clients().mid(0, kListedWindows))
        lines += QStringLiteral("  0x%1 \"%2\" [%3] %4 on %5, for 0x%6%7\n")
                     .arg(client, 0, 16)
                     .arg(title(client), wmClass(client), text(geometry(client)))
                     .arg(desktopOf(client))
                     .arg(transientFor(client), 0, 16)
                     .arg(isViewable(client) ? QString() : QStringLiteral(" hidden"));
    return lines;
}

QString text(const QRect &rect)
{
    return QStringLiteral("%1,%2 %3x%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

void XClient::paintRoot(quint32 rgb)
{
    const uint32_t values[] = {rgb};
    xcb_change_window_attributes(m_x->c, m_x->root, XCB_CW_BACK_PIXEL, values);
    xcb_clear_area(m_x->c, 0, m_x->root, 0, 0, 0, 0);
    xcb_flush(m_x->c);
}

QImage XClient::screenshot() const
{
    const QRect screen = m_x->screen;
    const Owned<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        m_x->c,
        xcb_get_image(m_x->c, XCB_IMAGE_FORMAT_Z_PIXMAP, m_x->root, 0, 0,
                      static_cast<uint16_t>(screen.width()), static_cast<uint16_t>(screen.height()), ~0u),
        nullptr));
    if (!reply)
        return {};
    const QImage picture(xcb_get_image_data(reply.get()), screen.width(), screen.height(),
                         qsizetype{4} * screen.width(), QImage::Format_RGB32);
    return picture.copy();
}

} // namespace norvane::test
