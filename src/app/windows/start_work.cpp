#include "app/windows/start_work.h"

#include "platform/environment.h"
#include "settings/settings_store.h"
#include "wallet_bridge/binding.h"

StartWork::StartWork() : m_thread([this] { run(); }) {}

StartWork::~StartWork()
{
    wait();
}

const FoundAtStart& StartWork::wait()
{
    if (m_thread.joinable()) m_thread.join();
    return m_found;
}

void StartWork::run()
{
    bind_at_startup(executable_folder(), "Brasslet");
    m_found.notice = load_settings(m_found.settings);
    m_found.cards = card_texts();
}
