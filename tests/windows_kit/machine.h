// The system that the checks run on.
#pragma once

bool is_wine();
