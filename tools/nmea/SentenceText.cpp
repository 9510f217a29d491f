#include "tools/nmea/SentenceText.h"

#include <algorithm>
#include <cmath>

#include "tools/text/DecimalText.h"

namespace kestgps
{

SentenceText& SentenceText::Text(std::string_view field)
{
    body += ',';
    body += field;
    return *this;
}

SentenceText& SentenceText::Empty(int count)
{
    body.append(static_cast<std::size_t>(count), ',');
    return *this;
}

SentenceText& SentenceText::Whole(int value, int digits)
{
    int most = 9;
    for (int i = 1; i < digits; ++i) {
        most = most * 10 + 9;
    }
    return Text(ScaledText(std::clamp(value, 0, most), 0, digits));
}

SentenceText& SentenceText::Decimal(double value, double least, double most, int decimals)
{
    return std::isnan(value) ? Empty() : Text(DecimalText(std::clamp(value, least, most), decimals));
}

std::string SentenceText::Finish() const
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    unsigned sum = 0;
    for (const char character : body) {
        sum ^= static_cast<unsigned char>(character);
    }
    return "$" + body + "*" + DIGITS[sum >> 4U] + DIGITS[sum & 0x0FU] + "\r\n";
}

} // namespace kestgps
