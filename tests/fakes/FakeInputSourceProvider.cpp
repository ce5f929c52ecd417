#include "FakeInputSourceProvider.h"

FakeInputSourceProvider::Source FakeInputSourceProvider::layout(const QString& name, const QString& id,
                                                                QStringView unshifted, QStringView shifted)
{
    Source result;
    result.name = name;
    result.id = id;
    for (qsizetype i = 0; i < unshifted.size(); ++i)
        result.setKey(int(i), false, unshifted.sliced(i, 1).toString());
    for (qsizetype i = 0; i < shifted.size(); ++i)
        result.setKey(int(i), true, shifted.sliced(i, 1).toString());
    return result;
}

int FakeInputSourceProvider::addSource(Source source)
{
    m_sources.append(std::make_shared<Source>(std::move(source)));
    return int(m_sources.size() - 1);
}

PlatformInputSource FakeInputSourceProvider::describe(const std::shared_ptr<Source>& source) const
{
    return PlatformInputSource{source, source->name, source->id, source->type, source->hasKeyLayoutData};
}

QList<PlatformInputSource> FakeInputSourceProvider::inputSources()
{
    QList<PlatformInputSource> result;
    for (const auto& source : m_sources)
        result.append(describe(source));
    return result;
}

std::optional<PlatformInputSource> FakeInputSourceProvider::currentSource()
{
    if (!m_current || *m_current >= m_sources.size())
        return std::nullopt;
    return describe(m_sources[*m_current]);
}

std::int32_t FakeInputSourceProvider::selectSource(const InputSourceRef& source)
{
    ++m_selectCalls;
    if (m_failuresLeft > 0) {
        --m_failuresLeft;
        return m_failureStatus;
    }
    for (int i = 0; i < m_sources.size(); ++i) {
        if (m_sources[i] == source) {
            m_current = i;
            return 0;
        }
    }
    return -50;
}

std::optional<QString> FakeInputSourceProvider::translateKey(const InputSourceRef& source, int keyCode,
                                                             bool shift)
{
    ++m_translateCalls;
    const auto* scripted = static_cast<const Source*>(source.get());
    const auto it = scripted->keys.constFind(Source::slot(keyCode, shift));
    if (it == scripted->keys.constEnd())
        return std::nullopt;
    return it.value();
}
