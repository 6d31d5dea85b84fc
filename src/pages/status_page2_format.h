#pragma once

#include <QString>

struct StatusPage2VM;

// Texts of the video status page that follow from numbers alone.
namespace StatusPage2Format {

// Whether the encoder accepts this input; the table lists each size with
// its integer frame rates.
bool isSupportedInput(int width, int height, int fps);
// "59.94" for 60 with a fractional divider, the plain number otherwise.
QString frameRateText(int fps, int fpsdiv);
// "1080p60", "1080i50" (1920 by 540 are interlaced fields), "2160p29.97",
// or "WxH@rate" for other sizes.
QString videoFormatText(int width, int height, int fps, int fpsdiv);
// 0 "H.264", 1 "H.265", anything else "MJPEG".
QString encoderCodecText(int codec);
// The `state` that colours a decoder status text.
QString decoderStatusState(int status);
// A format field for the summary line, or empty when it says nothing.
QString compactSummaryField(const QString& field);
// "999kbps", "2Mbps", "2.5Mbps".
QString bandwidthText(int kbps);
// Video format, audio format, size with rate and bandwidth, four blanks
// apart, leaving out what is unknown.
QString decoderSummaryText(const StatusPage2VM& vm);

} // namespace StatusPage2Format
