#pragma once
// Record types of the backend API, filled through a reference by the domain getters.
