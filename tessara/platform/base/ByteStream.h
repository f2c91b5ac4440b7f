#pragma once

#include <cstdint>

#include "tessara/platform/base/Api.h"
#include "tessara/platform/base/Types.h"

namespace tessara {

/// What an archive reads from and writes to; files implement it. Errors are thrown as CFileException.
class TESSARA_API CByteStream {
public:
    virtual ~CByteStream() = default;
    /// Reads up to nCount bytes; fewer only at the end of the stream.
    virtual UINT Read(void* pBuffer, UINT nCount) = 0;
    virtual void Write(const void* pBuffer, UINT nCount) = 0;
    virtual void Flush() = 0;
    /// False when the end is known only when it is reached; GetRemaining then means nothing or throws
    /// CFileException.
    virtual bool HasLength() const { return true; }
    /// Bytes from the current position to the end.
    virtual std::uint64_t GetRemaining() const = 0;
};

} // namespace tessara
