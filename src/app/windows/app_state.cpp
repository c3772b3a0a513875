#include "app/windows/app_state.h"

AppState& app_state()
{
    static AppState state;
    return state;
}
