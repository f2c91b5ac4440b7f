#include "tessara/platform/qt/drawing/TextRun.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainterPath>
#include <cmath>
#include <cstdlib>
#include <map>
#include <tuple>

#include "tessara/platform/gdi/TextMeasure.h"
#include "tessara/platform/qt/application/Application.h"

namespace tessara {

namespace {

constexpr const char* SERIF_FAMILY = "Liberation Serif";
constexpr const char* SYMBOLS_FAMILY = "Standard Symbols PS"; ///< for what the serif family lacks
constexpr LONG DEFAULT_HEIGHT = 16;
constexpr LONG BOLD_FROM = 550;

QStringList FamiliesFor(const LOGFONT& font) {
    const QString strFace = QString::fromUtf8(font.lfFaceName);
    if (IsSymbolFont(font)) {
        return {SERIF_FAMILY, SYMBOLS_FAMILY};
    }
    if (strFace.compare("Times New Roman", Qt::CaseInsensitive) == 0) {
        return {SERIF_FAMILY, strFace, "Times"};
    }
    if (strFace.compare("MS Sans Serif", Qt::CaseInsensitive) == 0) {
        return {"Liberation Sans", "Sans Serif"};
    }
    return {strFace, SERIF_FAMILY};
}

} // namespace

CFontFace::CFontFace(const LOGFONT& font) {
    EnsureApplication();
    m_font.setFamilies(FamiliesFor(font));
    m_font.setPixelSize(REFERENCE_SIZE);
    m_font.setBold(font.lfWeight >= BOLD_FROM);
    m_font.setItalic(font.lfItalic != 0);
    m_font.setUnderline(font.lfUnderline != 0);
    m_font.setStrikeOut(font.lfStrikeOut != 0);
    m_font.setKerning(false);
    m_font.setHintingPreference(QFont::PreferNoHinting);
    m_font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::PreferNoShaping));
    const QFontMetricsF metrics(m_font);
    m_dAscent = metrics.ascent() / REFERENCE_SIZE;
    m_dDescent = metrics.descent() / REFERENCE_SIZE;
}

const CFontFace& CFontFace::Find(const LOGFONT& font) {
    using Key = std::tuple<std::string, bool, bool, bool, bool>;
    thread_local std::map<Key, CFontFace> t_faces;
    const Key key{font.lfFaceName, font.lfWeight >= BOLD_FROM, font.lfItalic != 0, font.lfUnderline != 0,
                  font.lfStrikeOut != 0};
    const auto found = t_faces.find(key);
    return found != t_faces.end() ? found->second : t_faces.emplace(key, CFontFace(font)).first->second;
}

QFont CFontFace::AtSize(int nPixels) const {
    QFont font = m_font;
    font.setPixelSize(nPixels < 1 ? 1 : nPixels);
    return font;
}

double CFontFace::GetAdvance(const QString& strText) const {
    return QFontMetricsF(m_font).horizontalAdvance(strText) / REFERENCE_SIZE;
}

double CFontFace::GetMeanWidth() const {
    return QFontMetricsF(m_font).averageCharWidth() / REFERENCE_SIZE;
}

double CFontFace::GetLargestWidth() const {
    return QFontMetricsF(m_font).maxWidth() / REFERENCE_SIZE;
}

double CFontFace::GetEm(LONG nHeight) const {
    const LONG nAsked = nHeight == 0 ? DEFAULT_HEIGHT : nHeight;
    return nAsked > 0 ? nAsked / GetLineHeight() : -static_cast<double>(nAsked);
}

QPainterPath CFontFace::GetOutlines(const QString& strText) const {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addText(0, 0, m_font, strText);
    return path;
}

SIZE MeasureText(const LOGFONT& font, std::string_view strBytes) {
    const CFontFace& face = CFontFace::Find(font);
    const double dEm = face.GetEm(font.lfHeight);
    const double dWidth = face.GetAdvance(QString::fromStdU32String(DecodeFor(font, strBytes))) * dEm;
    return {ToCoordinate(std::round(dWidth)), ToCoordinate(std::round(face.GetLineHeight() * dEm))};
}

CFontMeasures MeasureFont(const LOGFONT& font) {
    const CFontFace& face = CFontFace::Find(font);
    const double dEm = face.GetEm(font.lfHeight);
    const auto fnUnits = [dEm](double dPart) { return ToCoordinate(std::round(dPart * dEm)); };
    return {fnUnits(face.GetLineHeight()), fnUnits(face.GetAscent()), fnUnits(1),
            fnUnits(face.GetMeanWidth()), fnUnits(face.GetLargestWidth())};
}

LONG MeasureEm(const LOGFONT& font) {
    return ToCoordinate(std::round(CFontFace::Find(font).GetEm(font.lfHeight)));
}

std::vector<LONG> MeasureAdvances(const LOGFONT& font, std::string_view strBytes) {
    const CFontFace& face = CFontFace::Find(font);
    const double dEm = face.GetEm(font.lfHeight);
    std::vector<LONG> advances;
    double dPen = 0;
    LONG nPen = 0;
    for (const char ch : strBytes) {
        // Byte by byte: several bytes of Windows-1252 may look like one UTF-8 character.
        dPen += face.GetAdvance(QString::fromStdU32String(DecodeFor(font, {&ch, 1}))) * dEm;
        const LONG nNext = ToCoordinate(std::round(dPen));
        advances.push_back(nNext - nPen);
        nPen = nNext;
    }
    return advances;
}

} // namespace tessara
