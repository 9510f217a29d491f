#include "layers/adapter/CSentenceAdapter.h"

#include "layers/adapter/CReceivedSentence.h"
#include "layers/adapter/CSentenceFields.h"
#include "layers/adapter/FieldText.h"
#include "layers/adapter/MakeGga.h"
#include "layers/adapter/Shorten.h"

namespace adapter
{

namespace
{

constexpr std::size_t QUALITY = 6;  // the field of a GGA
constexpr std::size_t SHORTEST = 9; // [byte]; a listener doesn't look at less, and what follows is spoilt

/// Result: true when the library reads this type, or a GGA may be made of it.
bool IsTaken(SENTENCETYPE type) noexcept
{
    return type != TYPE_GSV && type != TYPE_OTHER;
}

/// Result: true when the text as it came holds no more than 82 characters, a bare line feed counted as CR LF.
bool FitsAsItCame(const CReceivedSentence& received) noexcept
{
    return received.Text().size() - received.LineEnd().size() <= CSentenceFields::LONGEST;
}

} // namespace

/// A sentence on its way out.
struct CSentenceAdapter::Draft {
    enum SOURCE { ITSELF, FROM_GNS, FROM_RMC };

    const CReceivedSentence& received;
    std::string_view body; // as received, or less of it
    CSentenceSink& sink;
    SOURCE source = ITSELF;
    unsigned changes = 0; // a bit for each CHANGE
    bool edited = false;  // `fields` tell something else than `body`
    std::string_view out; // in `received` or in `text`

    Draft(const CReceivedSentence& received, std::string_view body, CSentenceSink& sink) noexcept
        : received(received), body(body), sink(sink)
    {
        if (received.Kind() != TALKER_GP) {
            Change(CHANGE_TALKER);
        }
        if (received.SmallDigits(body)) {
            Change(CHANGE_DIGITS);
        }
    }

    void Change(CHANGE why) noexcept { changes |= 1U << static_cast<unsigned>(why); }
    void ChangeFields(CHANGE why) noexcept
    {
        Change(why);
        edited = true;
    }

    /// Result: the fields, to be read or changed. Most sentences need them not: it takes a while to part
    /// them.
    CSentenceFields& Fields() noexcept
    {
        if (!parted) {
            fields.Part(body);
            parted = true;
        }
        return fields;
    }
    std::string_view Field(std::size_t number) const noexcept
    {
        return parted ? fields[number] : FieldOf(body, number);
    }
    void Become(SOURCE made, const CSentenceFields& gga) noexcept
    {
        fields = gga;
        parted = true;
        edited = true;
        source = made;
    }

    bool PutTogether() noexcept;
    void Emit() const noexcept { sink.OnSentence(out.data(), out.size()); }

private:
    bool ComposeFields() noexcept;

    SentenceText text;
    CSentenceFields fields; // of `body`, once it is parted
    bool parted = false;
};

/// Finds out what goes out: what came if it can be.
/// Result: false when it doesn't fit.
bool CSentenceAdapter::Draft::PutTogether() noexcept
{
    if (!edited && changes == 0 && FitsAsItCame(received)) {
        out = received.Text();
        return true;
    }
    if (changes == 0) {
        Change(CHANGE_LENGTH); // what stands behind the checksum goes, if nothing else does
    }
    const bool whole = !edited && body.size() + 4 <= CSentenceFields::LONGEST;
    if (whole) {
        Compose(body, received.LineEnd(), text);
    } else if (!ComposeFields()) {
        return false;
    }
    out = text.View();
    return true;
}

bool CSentenceAdapter::Draft::ComposeFields() noexcept
{
    CSentenceFields& wanted = Fields();
    if (!wanted.Fits()) {
        Change(CHANGE_LENGTH);
    }
    if (!Shorten(source == ITSELF ? received.Type() : TYPE_GGA, wanted)) {
        return false;
    }
    wanted.Compose(received.LineEnd(), text);
    return true;
}

void CSentenceAdapter::Take(const char* bytes, std::size_t length, CSentenceSink& sink) noexcept
{
    while (length > 0) {
        const std::size_t taken = cutter.Take(bytes, length);
        bytes += taken;
        length -= taken;
        if (cutter.Ended()) {
            cutter.EndLine();
            TakeSentence(sink);
        }
    }
    counts.strayBytes = cutter.StrayBytes();
}

void CSentenceAdapter::End(CSentenceSink& sink) noexcept
{
    if (!cutter.End()) {
        return;
    }
    if (!missing.HasGga()) {
        cutter.EndLine(); // a GGA may follow
    }
    TakeSentence(sink);
}

void CSentenceAdapter::TakeSentence(CSentenceSink& sink) noexcept
{
    const CReceivedSentence received(cutter.Text(), talkers);
    const TALKERKIND kind = received.Kind();
    ++counts.came[kind][received.Type()];
    if (kind == TALKER_PROPRIETARY || kind == TALKER_FOREIGN) {
        return Drop(kind == TALKER_FOREIGN ? DROP_FOREIGN : DROP_PROPRIETARY);
    }
    if (kind != TALKER_GP && !IsTaken(received.Type())) {
        return Drop(received.Type() == TYPE_GSV ? DROP_SYSTEM : DROP_FOREIGN);
    }
    if (!cutter.Kept()) {
        return Drop(DROP_LENGTH);
    }
    const std::string_view body = received.Body();
    if (body.empty()) {
        return TakeBad(received, sink);
    }
    Draft draft(received, body, sink);
    TakeRight(draft);
}

void CSentenceAdapter::TakeBad(const CReceivedSentence& received, CSentenceSink& sink) noexcept
{
    if (received.Kind() != TALKER_GP) {
        return Drop(DROP_CHECKSUM);
    }
    if (received.Text().size() < SHORTEST || !FitsAsItCame(received)) {
        return Drop(DROP_LENGTH);
    }
    ++counts.passed;
    sink.OnSentence(received.Text().data(), received.Text().size());
}

void CSentenceAdapter::TakeRight(Draft& draft) noexcept
{
    switch (draft.received.Type()) {
    case TYPE_GGA:
        return TakeGga(draft);
    case TYPE_GNS:
        return TakeGns(draft);
    case TYPE_RMC:
        return TakeRmc(draft);
    case TYPE_GSA:
        return TakeGsa(draft);
    case TYPE_GSV:
        return TakeGsv(draft);
    case TYPE_GLL:
    case TYPE_ZDA:
        if (Send(draft)) {
            used.EndRow();
        }
        return;
    default:
        Send(draft);
    }
}

void CSentenceAdapter::TakeGga(Draft& draft) noexcept
{
    missing.TakeGga();
    SendGga(draft);
}

void CSentenceAdapter::TakeGns(Draft& draft) noexcept
{
    CSentenceFields waiting = draft.Fields();
    if (!Shorten(TYPE_GNS, waiting)) {
        return Drop(DROP_LENGTH); // not counted either: what can't go out leaves no trace
    }
    switch (missing.TakeGns(CTimeText(draft.Field(1)))) {
    case CMissingGga::MAKE:
        draft.Become(Draft::FROM_GNS, GgaFromGns(draft.Fields()));
        return SendGga(draft);
    case CMissingGga::NO_NEED:
        if (draft.received.Kind() != TALKER_GP) {
            return Drop(DROP_NO_NEED);
        }
        break;
    case CMissingGga::WAIT:
        break;
    }
    Send(draft);
}

void CSentenceAdapter::TakeRmc(Draft& draft) noexcept
{
    if (!Send(draft)) {
        return;
    }
    used.EndRow();
    if (missing.TakeRmc(CTimeText(draft.Field(1)))) {
        draft.Become(Draft::FROM_RMC, GgaFromRmc(draft.Fields(), used.Listed()));
        SendGga(draft);
    }
}

void CSentenceAdapter::TakeGsa(Draft& draft) noexcept
{
    CSatellitesUsed next = used; // what can't go out leaves no trace
    const SatelliteVerdict verdict = next.Judge(draft.received.Kind(), draft.Fields());
    if (!verdict.goesOut) {
        return Drop(DROP_SYSTEM);
    }
    if (verdict.changed) {
        draft.ChangeFields(verdict.why);
    }
    if (Send(draft)) {
        used = next;
    }
}

void CSentenceAdapter::TakeGsv(Draft& draft) noexcept
{
    const ViewVerdict verdict = inView.Judge(draft.body);
    if (!verdict.goesOut) {
        return Drop(DROP_SIGNAL);
    }
    if (verdict.changed) {
        draft.Change(verdict.why);
    }
    if (verdict.dropsEntries) {
        DropEntries(draft.Fields());
        draft.edited = true;
    }
    Send(draft);
}

bool CSentenceAdapter::Send(Draft& draft) noexcept
{
    if (!draft.PutTogether()) {
        Drop(DROP_LENGTH);
        return false;
    }
    Count(draft);
    draft.Emit();
    return true;
}

void CSentenceAdapter::SendGga(Draft& draft) noexcept
{
    const std::string_view talker = draft.received.Talker();
    const CTimeText time(draft.Field(1));
    const bool behindRmc = draft.source == Draft::FROM_RMC;
    if (!behindRmc && epochs.HasClosed(talker, time)) {
        return Drop(DROP_SECOND_FIX);
    }
    const std::string_view older = OlderQuality(draft.Field(QUALITY));
    if (!older.empty()) {
        draft.Fields().Set(QUALITY, older);
        draft.ChangeFields(CHANGE_QUALITY);
    }
    if (!draft.PutTogether()) {
        return Drop(DROP_LENGTH);
    }
    const bool asItIs = draft.source == Draft::ITSELF && draft.received.Kind() == TALKER_GP;
    if (!asItIs && epochs.IsRepeated(draft.out, draft.Field(QUALITY))) {
        return Drop(DROP_SECOND_FIX);
    }
    Count(draft);
    draft.Emit();
    epochs.Note(talker, time, draft.out, behindRmc);
    missing.NoteGga();
    used.NoteGga();
}

void CSentenceAdapter::Count(const Draft& draft) noexcept
{
    if (draft.source != Draft::ITSELF) {
        ++(draft.source == Draft::FROM_GNS ? counts.madeFromGns : counts.madeFromRmc);
        return;
    }
    ++(draft.changes == 0 ? counts.passed : counts.rewritten);
    for (unsigned why = 0; draft.changes >> why != 0; ++why) {
        counts.changed[why] += draft.changes >> why & 1U;
    }
}

} // namespace adapter
