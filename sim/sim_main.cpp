// panel-sim: a stand-in for the box's backend daemons, for demos and tests.
#include "sim_options.h"
#include "simulator.h"

#include <csignal>
#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    const sim::ParsedOptions options = sim::parseOptions(argc, argv);
    if (!options.error.empty()) {
        std::cerr << "panel-sim: " << options.error << "\n" << sim::usageText();
        return 2;
    }
    if (options.show_help) {
        std::cout << sim::usageText();
        return 0;
    }

    // Block the stop signals before any thread starts, so that every thread
    // inherits the mask and only sigwait below sees them.
    sigset_t stop_signals;
    sigemptyset(&stop_signals);
    sigaddset(&stop_signals, SIGINT);
    sigaddset(&stop_signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stop_signals, nullptr);

    try {
        sim::Simulator simulator(options.config);
        simulator.start();
        const BackendEndpoints& endpoints = options.config.endpoints;
        std::cout << "panel-sim: serving " << endpoints.webserver << " and "
                  << endpoints.mediaserver << ", topics on " << endpoints.topics_sub
                  << ", control on " << simulator.controlPath() << std::endl;
        int signal_number = 0;
        sigwait(&stop_signals, &signal_number);
        simulator.stop();
        std::cout << "panel-sim: stopped on signal " << signal_number << std::endl;
    } catch (const std::exception& e) {
        std::cerr << "panel-sim: " << e.what() << std::endl;
        return 1;
    }
    return 0;
}
