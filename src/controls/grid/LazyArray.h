#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace norvane {

/// One value for each row of a column. It takes no memory while every row has the default.
/// Positions count from 0 and must lie below the size, but where it is said otherwise.
template <class T> class LazyArray
{
public:
    explicit LazyArray(T standard = T()) : m_standard(std::move(standard)) {}

    const T &at(std::size_t position) const { return m_values.empty() ? m_standard : m_values[position]; }
    bool isDefault() const { return m_values.empty(); }

    void set(std::size_t position, T value)
    {
        if (m_values.empty()) {
            if (value == m_standard)
                return;
            m_values.resize(m_size, m_standard);
        }
        m_values[position] = std::move(value);
    }
    /// Every row gets the default.
    void reset() { std::vector<T>().swap(m_values); }
    void resize(std::size_t size)
    {
        m_size = size;
        if (size == 0)
            reset();
        else if (!m_values.empty())
            m_values.resize(size, m_standard);
    }
    /// @param position up to the size
    void insert(std::size_t position)
    {
        ++m_size;
        if (!m_values.empty())
            m_values.insert(m_values.begin() + static_cast<std::ptrdiff_t>(position), m_standard);
    }
    void remove(std::size_t position)
    {
        --m_size;
        if (!m_values.empty())
            m_values.erase(m_values.begin() + static_cast<std::ptrdiff_t>(position));
    }
    /// Row i becomes what row order[i] was; order holds each position once.
    template <class Order> void permute(const Order &order)
    {
        if (m_values.empty())
            return;
        std::vector<T> moved;
        moved.reserve(m_values.size());
        for (const auto from : order)
            moved.push_back(std::move(m_values[static_cast<std::size_t>(from)]));
        m_values.swap(moved);
    }

private:
    T m_standard;
    std::size_t m_size = 0;
    std::vector<T> m_values; ///< empty, or as many as there are rows
};

} // namespace norvane
