#pragma once
// Record types of the backend API, filled through a reference by the domain
// getters. A switch on the wire (key "switch") is the field `switch_on`.
#include "zmqapi/records_decoder.h"
#include "zmqapi/records_device.h"
#include "zmqapi/records_encoder.h"
