// The domain status maps: each turns a backend code (decimal text) into a
// status value, and -9999 for a code the domain does not know. Most domains
// number their codes densely from a first code; the rest list theirs.
#include "link/zmq_sub_worker.h"

#include <cstdlib>
#include <initializer_list>
#include <string>
#include <utility>

namespace {

// Text that is no number reads as 0, which no domain uses.
long codeNumber(const std::string& code)
{
    return std::strtol(code.c_str(), nullptr, 10);
}

// `values[i]` is the value of code `first + i`.
int lookupDense(const std::string& code, long first, std::initializer_list<int> values)
{
    const long offset = codeNumber(code) - first;
    if (offset < 0 || offset >= static_cast<long>(values.size()))
        return ZmqSubWorker::kUnknownCode;
    return values.begin()[offset];
}

using CodeValue = std::pair<long, int>;

int lookupListed(const std::string& code, std::initializer_list<CodeValue> entries)
{
    const long number = codeNumber(code);
    for (const CodeValue& entry : entries) {
        if (entry.first == number)
            return entry.second;
    }
    return ZmqSubWorker::kUnknownCode;
}

// Codes `first` to `last` share `value`, except those listed.
int lookupRange(const std::string& code, long first, long last, int value,
                std::initializer_list<CodeValue> exceptions)
{
    const long number = codeNumber(code);
    if (number < first || number > last)
        return ZmqSubWorker::kUnknownCode;
    for (const CodeValue& entry : exceptions) {
        if (entry.first == number)
            return entry.second;
    }
    return value;
}

} // namespace

int ZmqSubWorker::mapSystemStatusCodeToValue(const std::string& code)
{
    return lookupDense(code, 80001, {0, -8, -3, -3, -3, -2, -2, -3, -3, -3, -401, -402, -3, -403});
}

int ZmqSubWorker::mapNetworkStatusCodeToValue(const std::string& code)
{
    return lookupRange(code, 70001, 70035, -2,
                       {{70001, -3},
                        {70003, -8},
                        {70020, -8},
                        {70032, -8},
                        {70016, -301},
                        {70017, ZmqSubWorker::kUnknownCode},
                        {70018, ZmqSubWorker::kUnknownCode},
                        {70019, ZmqSubWorker::kUnknownCode}});
}

int ZmqSubWorker::mapVideoStatusCodeToValue(const std::string& code)
{
    return lookupDense(code, 130001, {-801, -3, -2, -2});
}

int ZmqSubWorker::mapAudioStatusCodeToValue(const std::string& code)
{
    return lookupListed(code, {{90001, -501}, {90002, -502}});
}

int ZmqSubWorker::mapStreamStatusCodeToValue(const std::string& code)
{
    return lookupDense(code, 60001,
                       {-8, -10, -11, -2, -2, -2, -201, -2, -2, -2, -9, -12, -202, -2, -2, -203});
}

int ZmqSubWorker::mapOsdStatusCodeToValue(const std::string& code)
{
    return lookupDense(code, 120001, {-3, -2, -3, -3, -3, -2, -3, -3, -2});
}

// The AI service reports failures by its reply forms, not by codes.
int ZmqSubWorker::mapAiStatusCodeToValue(const std::string&)
{
    return ZmqSubWorker::kUnknownCode;
}

// The record service also passes on the first two codes of the storage service.
int ZmqSubWorker::mapRecordStatusCodeToValue(const std::string& code)
{
    return lookupListed(code, {{100001, -5},
                               {100002, -6},
                               {110001, -701},
                               {110002, -702},
                               {110003, -703},
                               {110004, -704},
                               {110005, -705},
                               {110006, -706},
                               {110007, -707},
                               {110008, -708},
                               {110009, -709},
                               {110010, -710}});
}

int ZmqSubWorker::mapStorageStatusCodeToValue(const std::string& code)
{
    return lookupDense(code, 100001,
                       {-5, -6, -601, -601, -602, -3, -3, -3, -603, -604, -605, -606, -607, -608,
                        -609, -610, -611});
}

int ZmqSubWorker::mapStreamPlayStatusCodeToValue(const std::string& code)
{
    return lookupDense(code, 140001, {-2, -3, -2, -2, -901, -902, -3, -903, -2});
}

int ZmqSubWorker::mapMediaplayerStatusCodeToValue(const std::string& code)
{
    const int player = lookupRange(code, 150001, 150010, -3, {{150009, -1001}, {150010, -1002}});
    if (player != ZmqSubWorker::kUnknownCode)
        return player;
    return lookupRange(code, 190001, 190008, -3, {{190003, -2}, {190006, -2}});
}

// The PTZ service answers with words.
int ZmqSubWorker::mapPtzctrlStatusCodeToValue(const std::string& code)
{
    if (code == "ptz_not_ready")
        return -3;
    if (code == "invalid_protocol")
        return -2;
    return ZmqSubWorker::kUnknownCode;
}
