#pragma once

// What ZmqGetWorker needs of the application model. AppManager implements it;
// the link layer sees only this face, so that it does not depend on the model
// layer above it.
class ZmqGetWorkerModel {
public:
    virtual ~ZmqGetWorkerModel() = default;

    // The work mode the model holds (0 encoder, 1 decoder), used before the
    // first system state topic has arrived.
    virtual int getWorkMode() const = 0;
};
