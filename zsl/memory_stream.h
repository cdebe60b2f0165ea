#pragma once

#include <cstddef>
#include <vector>

namespace zsl {

/// The operations of a stream in memory. Reading and writing have a place of their own each: reading begins at the
/// first byte, writing goes on behind the last.
class IMemoryStream {
public:
    /// Reads up to `size` bytes. @param got null or where the number of bytes read is told
    /// @return true when all `size` bytes were there
    virtual bool read(void* to, std::size_t size, std::size_t* got) = 0;
    /// @return false for a stream over a block of the caller's: that is never changed
    virtual bool write(const void* from, std::size_t size) = 0;
    /// All bytes of the stream, read or not.
    [[nodiscard]] virtual std::size_t size() const = 0;

protected:
    ~IMemoryStream() = default;
};

/// Bytes in memory: its own, growing as they are written, or a block of the caller's for reading.
class memory_stream final : private IMemoryStream {
public:
    memory_stream() noexcept = default;
    /// @param data must outlive the stream; null gives a stream that is not `ok`
    memory_stream(const void* data, std::size_t size) noexcept;
    memory_stream(const memory_stream&) = delete;
    memory_stream& operator=(const memory_stream&) = delete;
    ~memory_stream() = default;

    /// True when the stream can be used. The operations of one that is not do nothing.
    [[nodiscard]] bool ok() const noexcept { return m_ok; }
    bool read(void* to, std::size_t size, std::size_t* got) override;
    /// The interface lives as long as the stream; null when the stream is not `ok`.
    [[nodiscard]] IMemoryStream* get_interface() noexcept { return m_ok ? this : nullptr; }

private:
    bool write(const void* from, std::size_t size) override;
    [[nodiscard]] std::size_t size() const override;
    [[nodiscard]] const std::byte* begin() const noexcept { return m_block ? m_block : m_own.data(); }

    bool m_ok = true;
    const std::byte* m_block = nullptr;  // the caller's
    std::size_t m_blockSize = 0;
    std::vector<std::byte> m_own;
    std::size_t m_readPlace = 0;
};

}  // namespace zsl
