"""Starts of the program at the same moment."""
import desk


def test_of_ten_starts_at_once_one_window_is_left_and_what_is_typed_in_it_survives(user):
    started = [desk.start_program() for _ in range(10)]
    try:
        assert desk.is_true("wait-window")
        assert desk.wait_until(lambda: sum(process.poll() is None for process in started) == 1, seconds=60)
        desk.drive("type", desk.NAME, "Zoe")
        desk.drive("press", desk.SETTINGS)
        desk.drive("type", desk.SITE, "typed.example")
        desk.drive("type", desk.USER, "typed user")
        desk.drive("press", desk.CLOSE_SETTINGS)
        desk.drive("close")
        assert desk.is_true("wait-gone")
        assert [process.wait(timeout=30) for process in started] == [0] * len(started)
    finally:
        for process in started:
            if process.poll() is None:
                process.kill()
            process.wait()
    with desk.running_program():
        assert desk.drive("text", desk.NAME) == "Zoe"
        desk.drive("press", desk.SETTINGS)
        assert desk.drive("text", desk.SITE) == "typed.example"
        assert desk.drive("text", desk.USER) == "typed user"
