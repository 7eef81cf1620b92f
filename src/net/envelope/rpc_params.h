// The parameters of a call and of its answer: a name, a type and a value as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace brixen::pvn {

// The base of both types. All texts are NUL-terminated and are owned by the parameter.
class PVN_RPCParam {
public:
    PVN_RPCParam(const PVN_RPCParam&) = delete;
    PVN_RPCParam& operator=(const PVN_RPCParam&) = delete;
    virtual ~PVN_RPCParam() = default;
    // The name of the value's element.
    [[nodiscard]] virtual const char* GetType() const = 0;
    // The text of the value; never null.
    [[nodiscard]] virtual const char* GetValue() const = 0;
    // Whether there is a value.
    [[nodiscard]] virtual bool IsValid() const { return false; }

    [[nodiscard]] const char* GetName() const { return name; }
    // Longer names are cut at 40 characters; a null name is the same as an empty one.
    void SetName(const char* newName);

protected:
    explicit PVN_RPCParam(const char* name) { SetName(name); }

private:
    char name[41] = {};
};

// A text in UTF-8, or bytes as hexadecimal text. Without memory for the value the parameter is not valid.
class PVN_RPCUtf8Param final : public PVN_RPCParam {
public:
    // Copies the text. A null text makes no value.
    PVN_RPCUtf8Param(const char* name, const char* text);
    // Makes hexadecimal text of the bytes. Null `bytes`, or a `length` below 1, make no value.
    PVN_RPCUtf8Param(const char* name, const void* bytes, std::ptrdiff_t length);

    [[nodiscard]] const char* GetType() const override;
    [[nodiscard]] const char* GetValue() const override;
    [[nodiscard]] bool IsValid() const override;

    // The number of bytes in the hexadecimal text; 0 when the number of its digits is odd.
    [[nodiscard]] std::size_t GetBinaryLength() const;
    // Decodes at most `size` bytes and returns their number. Returns 0 for a null `out`, for a text whose
    // length is odd, and when a character that is no digit is among those that are read; `out` may then
    // hold some bytes.
    [[nodiscard]] std::size_t GetBinary(void* out, std::size_t size) const;

private:
    std::unique_ptr<char[]> text; // null for no value
};

// A whole number as decimal text.
class PVN_RPCInt32Param final : public PVN_RPCParam {
public:
    PVN_RPCInt32Param(const char* name, std::int32_t value);
    // Copies at most 12 characters, whatever they are. A null text makes no value.
    PVN_RPCInt32Param(const char* name, const char* text);

    [[nodiscard]] const char* GetType() const override;
    [[nodiscard]] const char* GetValue() const override;
    [[nodiscard]] bool IsValid() const override;

    // Kept: characters that are no digits count by their code, and a number beyond 32 bits wraps.
    [[nodiscard]] std::int32_t GetInt() const;

private:
    char digits[13] = {}; // empty for no value
};

// Parameters in their order. No element is null.
class PVN_RPCParamVector : public std::vector<PVN_RPCParam*> {
public:
    PVN_RPCParamVector() = default;
    PVN_RPCParamVector(const PVN_RPCParamVector&) = delete;
    PVN_RPCParamVector& operator=(const PVN_RPCParamVector&) = delete;
    virtual ~PVN_RPCParamVector();

    // Whether the destructor deletes the elements.
    bool ownsItems = false;
};

} // namespace brixen::pvn
