"""What the program asks of Windows comes before anything that it is to protect from. Wine tells of calls that it ignores,
and of each library that is loaded."""
import os
import re
import subprocess

import desk

HARDENING = (r"RtlSetHeapInformation .*(info_class 1,|INFORMATION_CLASS 1 )",  # terminate on corruption
             r"SetProcessMitigationPolicy \(10,",  # images
             r"SetProcessMitigationPolicy \(9,")  # fonts
# rsaenh gives random bytes, for which the C run time asks before main begins.
BOUND_LATE = re.compile(r"Loaded .*\\(rsaenh|bcrypt|crypt32|dwmapi|msimg32|normaliz|secur32)\.dll", re.IGNORECASE)


def test_the_process_is_hardened_before_any_library_is_loaded_by_name(tmp_path):
    desk.clear_data_directory()
    told = tmp_path / "told"
    channels = "-all,fixme+heap,fixme+process,trace+loaddll"
    with told.open("w") as output:
        process = subprocess.Popen(["wine", desk.EXE], cwd=desk.EXE.parent, stderr=output,
                                   env=os.environ | {"WINEDEBUG": channels})
        desk.drive("wait-window")
        desk.drive("close")
        assert process.wait(timeout=30) == 0
    lines = told.read_text(errors="replace").splitlines()
    asked = [next(number for number, line in enumerate(lines) if re.search(request, line)) for request in HARDENING]
    loaded = [number for number, line in enumerate(lines) if BOUND_LATE.search(line)]
    assert asked == sorted(asked)
    assert loaded and asked[-1] < loaded[0]
