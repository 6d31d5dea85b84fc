#pragma once

#include "zmqapi/api_records.h"

#include <vector>

// What ZmqGetWorker needs of the application model. AppManager implements it;
// the link layer sees only this face, so that it does not depend on the model
// layer above it.
class ZmqGetWorkerModel {
public:
    virtual ~ZmqGetWorkerModel() = default;

    // The work mode the model holds (0 encoder, 1 decoder), used before the
    // first system state topic has arrived.
    virtual int getWorkMode() const = 0;

    // The model's typed reads. Each returns a status value; on a negative one
    // the record may be partly filled and must not be stored.
    virtual int getSystemInfo(VersionInfo& info) = 0;
    virtual int getDashboardInfo(DashBoardInfo& info) = 0;
    virtual int getVideoOutInfo(VideoOutInfo& info) = 0;
    virtual int getAudioAllInfo(AudioAllInfo& info) = 0;
    virtual int getPtzctrlInfo(PtzctrlInfo& info) = 0;
    virtual int getTallyInfo(TallyInfo& info) = 0;
    virtual int getAiTrackingInfo(AiTrackingInfo& info) = 0;
    virtual int getGskInfo(GskInfo& info) = 0;
    virtual int getVideoEncParams(std::vector<VideoEncInfo>& list) = 0;
    virtual int getEncLocalServerList(std::vector<EncRtspInfo>& rtsp_list,
                                      EncSrtInfo& srt_info) = 0;
    virtual int getDecNetStreamList(std::vector<DecNetStreamInfo>& list) = 0;
    virtual int getDecNdiList(std::vector<DecNdiInfo>& list) = 0;
    virtual int getDecUvcList(std::vector<UvcDevInfo>& list) = 0;
};
