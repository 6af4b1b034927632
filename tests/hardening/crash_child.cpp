// The child program of the hardening tests:
//   kwfy_crash_child OPERATION DIR     loads the control on DIR's workspace,
//                                      prints "ready", runs the operation
//                                      (save, ratefile, template), prints "done"
//   kwfy_crash_child host|control DIR COUNT
//                                      one side of the concurrency test
// Exit status 0 on success, 1 on a failed check or operation, 2 on usage.
#include <iostream>
#include <stdexcept>
#include <string>

#include "hardening/concurrent_roles.h"
#include "hardening/workload.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"

int main(int argc, char** argv) {
    using namespace kwfy::hardening;
    if (argc < 3) {
        std::cerr << "usage: kwfy_crash_child OPERATION DIR [COUNT]\n";
        return 2;
    }
    const std::string operation = argv[1];
    const Workspace ws{argv[2]};
    try {
        if (operation == "host" || operation == "control") {
            const int count = argc > 3 ? std::stoi(argv[3]) : 100;
            std::cout << "ready" << std::endl;
            (operation == "host" ? RunHost : RunControl)(ws, count);
            return 0;
        }
        kwfy::ScriptedUi ui;
        kwfy::KW_FYTable control(ui);
        Attach(control, ws);
        control.LoadFY();
        std::cout << "ready" << std::endl;
        RunOperation(control, ws, operation);
        std::cout << "done" << std::endl;
        return 0;
    } catch (const std::exception& e) {
        std::cerr << "kwfy_crash_child " << operation << ": " << e.what() << "\n";
        return 1;
    }
}
