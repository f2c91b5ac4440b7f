#pragma once

#include "tessara/platform/base/Exception.h"

/// The process cannot draw, or cannot show a window.
///
/// Surfaces throw it when they are made, and whatever draws or measures text when it is the first to ask for
/// fonts. What was there before is as it was; a later call works when the cause has gone.
class TESSARA_API CGraphicsException : public CException {
public:
    enum Cause {
        /// The program has made a Qt application object that lacks what is asked for: a QCoreApplication has
        /// no fonts, a QGuiApplication no windows.
        wrongApplication,
        /// Nothing was drawn in this process yet, and the calling thread is not the main one.
        wrongThread,
        /// The environment names a display or a platform for windows, and none of them can be reached.
        noDisplay
    };

    CGraphicsException(Cause eCause, std::string strMessage);
    ~CGraphicsException() override;

    Cause m_cause;
};
