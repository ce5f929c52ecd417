// The update server's answer as the update check decodes it, then turned into what the program shows. Input:
// the interface language and the running build on the first line ("ru 120"), the body after it.
#include "core/MivoraError.h"
#include "updates/AppUpdateResponse.h"
#include "updates/AppUpdateSnapshot.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const qsizetype lineEnd = input.indexOf('\n');
    const QByteArray head = input.left(lineEnd);
    const UiLanguage language = head.startsWith("ru") ? UiLanguage::ru : UiLanguage::en;
    const int currentBuild = head.mid(3).toInt();
    const QByteArray body = lineEnd < 0 ? QByteArray() : input.mid(lineEnd + 1);
    try {
        const AppUpdateResponse response = AppUpdateResponse::decode(body);
        static const QDateTime checkedAt = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
        const AppUpdateSnapshot snapshot =
            AppUpdateSnapshot::from(response, language, currentBuild, checkedAt);
        // A link is offered only when it can be opened as it stands.
        if (snapshot.downloadURL &&
            (!snapshot.downloadURL->isValid() || snapshot.downloadURL->isRelative())) {
            std::abort();
        }
        if (snapshot.latestBuild != response.latestBuild || snapshot.checkedAt != checkedAt) {
            std::abort();
        }
    } catch (const MivoraError&) {
        // Refused as undecodable: the check reports it to the user.
    }
    return 0;
}
