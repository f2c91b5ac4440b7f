#pragma once

#include <ostream>

#include "tessara/platform/base/Api.h"

/// Where CObject::Dump writes: a stream given by the caller, which must outlive the context.
class TESSARA_API CDumpContext {
public:
    explicit CDumpContext(std::ostream& stream) : m_stream(stream) {}

    template <class TYPE>
    CDumpContext& operator<<(const TYPE& value) {
        m_stream << value;
        return *this;
    }

private:
    std::ostream& m_stream;
};
