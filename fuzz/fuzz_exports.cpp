// Performs a sequence of calls of a host: creates, places, saves, restores, compiles, edits and releases modules.
//
// An input describes the steps. The target compares the memory map, the places and the blocks after each step with a
// model of the documented behavior.
#include "catalogtypes.h"
#include "dialogedit.h"
#include "hostedmodule.h"
#include "inputcursor.h"
#include "memorymodel.h"
#include "simpleextendexportfunc.h"
#include "simulatedhost.h"
#include "target.h"

#include <QApplication>

#include <array>
#include <limits>
#include <vector>

using namespace fuzz;

namespace {

constexpr int maximumSteps = 32;
constexpr std::size_t maximumModules = 8;

/// The steps of one input and the model.
class Session {
public:
    Session(const QByteArray &input, bool canEdit) : m_input(input), m_canEdit(canEdit)
    {
        simulatedhost::reset();
        simulatedhost::setPlcType(MemoryModel::station, 1 + m_input.byte() % 3U);
    }

    void run()
    {
        for (int step = 0; step < maximumSteps && !m_input.atEnd(); ++step) {
            performStep(m_input.below(10));
            require(MemoryModel::ofHost() == m_memory, "the memory map differs");
        }
        while (!m_modules.empty()) {
            release(m_modules.size() - 1);
        }
        require(MemoryModel::ofHost() == m_memory, "the memory map differs after all modules are released");
    }

private:
    void performStep(int step)
    {
        if (step == 0) {
            return create();
        }
        if (step == 1) {
            return claimForHost();
        }
        if (step <= 3 && !m_blocks.empty()) {
            return read(m_blocks[m_input.byte() % m_blocks.size()], step == 3);
        }
        if (m_modules.empty()) {
            return;
        }
        const std::size_t index = m_input.byte() % m_modules.size();
        switch (step) {
        case 4:
            return place(m_modules[index]);
        case 5:
            return write(m_modules[index]);
        case 6:
            return confirm(m_modules[index]);
        case 7:
            return release(index);
        default:
            return edit(m_modules[index]);
        }
    }

    QString owner() { return m_input.below(8) == 7 ? QString() : MemoryModel::station; }

    void create()
    {
        static const std::vector<quint32> types = catalogTypes();
        const std::size_t index = m_input.byte() % 32U;
        const bool isKnown = index < types.size();
        Module module;
        module.owner = owner();
        module.handle.reset(createObject(isKnown ? types[index] : m_input.number<quint32>() | 1U << 31U, module.owner));
        if (module.handle == nullptr) {
            // The input range stays claimed if there is no room for the output range.
            const MemoryModel found = MemoryModel::ofHost();
            require(found.contains(m_memory) && found.size() <= m_memory.size() + (isKnown ? 1 : 0),
                    "a refused type changes the memory map");
            m_memory = found;
            return;
        }
        require(isKnown && getNodeId(module.handle.get()) == qint32(types[index]), "another type is created");
        for (const IoMap &range : {getInMap(module.handle.get()), getOutMap(module.handle.get())}) {
            const int length = MemoryModel::lengthOf(range);
            require(module.owner.isEmpty() || length == 0 ||
                        m_memory.claim(module.owner, range.area, range.start, length),
                    "a module is created in claimed memory");
        }
        add(std::move(module));
    }

    void claimForHost()
    {
        constexpr std::array areas = {VarArea::AnalogInput, VarArea::AnalogOutput, VarArea::DigitalInput,
                                      VarArea::DigitalOutput, VarArea::Variable};
        const VarArea area = areas[m_input.byte() % areas.size()];
        const int start = m_input.number<quint16>();
        const int length = m_input.number<quint16>();
        require((getMemory(MemoryModel::station, area, start, length) == simulatedhost::Held) ==
                    m_memory.claim(MemoryModel::station, int(area), start, length),
                "the host claims memory that is not free");
    }

    void place(Module &module)
    {
        module.rack = static_cast<qint8>(m_input.byte());
        module.slot = m_input.byte() % 2U == 0 ? m_input.number<qint8>() : m_input.number<qint32>();
        module.position = {m_input.number<qint32>(), m_input.number<qint16>()};
        setRackId(module.handle.get(), module.rack);
        setSlotId(module.handle.get(), module.slot);
        setPosition(module.handle.get(), module.position);
        const quint32 highBits = quint32(module.position.x() | module.position.y()) & 0x80808080U;
        module.isSound = module.isSound && module.slot == qint8(module.slot) && highBits == 0;
        check(module);
    }

    void write(Module &module) { m_blocks.push_back(writtenFrom(module, m_input.below(2) == 0)); }

    void read(Block block, bool isDamaged)
    {
        block.owner = owner();
        if (isDamaged) {
            damage(block.bytes);
        }
        qint32 result = -1;
        Module module;
        static_cast<Expected &>(module) = block;
        module.handle.reset(block.isState ? restore(block.bytes, block.owner)
                                          : recompile(block.bytes, block.owner, &result));
        if (isDamaged) {
            return addDamaged(std::move(module));
        }
        SimpleExtendPar *const handle = module.handle.get();
        require(handle != nullptr && (block.isState || result == 0), "a written block is rejected");
        for (const IoMap &range : {block.input, block.output}) {
            m_memory.claim(block.owner, range.area, range.start, quint8(MemoryModel::lengthOf(range)));
        }
        if (!block.isSound) {
            return adopt(std::move(module));
        }
        // Configuration blocks contain neither position nor comment.
        module.position = block.isState ? block.position : QPoint();
        const bool hasName =
            getName(handle) == block.name && getComment(handle) == (block.isState ? block.comment : QString());
        require(hasName, "a block is read as a module with other texts");
        require(isSame(getInMap(handle), block.input) && isSame(getOutMap(handle), block.output),
                "a block is read as a module with other ranges");
        // Double-word weighing modules have the only ranges in the variable area.
        const bool isWeighing = block.input.area == quint8(VarArea::Variable);
        const int weighingUnit = block.isState ? 4 : 2;
        require(getInMap(handle).unit == (isWeighing ? weighingUnit : block.input.unit),
                "a block is read as a module with other units");
        const bool hasUnits = getInMap(handle).unit == block.input.unit && getOutMap(handle).unit == block.output.unit;
        require(!hasUnits || blockOf(handle, block.isState) == block.bytes, "a module gives another block");
        add(std::move(module));
    }

    void damage(QByteArray &bytes)
    {
        const int at = m_input.number<quint16>() % bytes.size();
        if (const char change = char(m_input.byte()); change != 0) {
            bytes[at] = char(bytes.at(at) ^ change);
        } else {
            bytes.truncate(at);
        }
    }

    /// A damaged block may contain any range with any length.
    void addDamaged(Module module)
    {
        const MemoryModel found = MemoryModel::ofHost();
        require(found.contains(m_memory) && found.size() <= m_memory.size() + 2,
                "a damaged block frees memory, or claims more than two ranges");
        m_memory = found;
        if (module.handle != nullptr) {
            module.isSound = false;
            adopt(std::move(module));
        }
    }

    void adopt(Module module)
    {
        SimpleExtendPar *const handle = module.handle.get();
        module.rack = getRackId(handle);
        module.slot = getSlotId(handle);
        module.position = getPosition(handle);
        add(std::move(module));
    }

    void confirm(Module &module)
    {
        SimpleExtendPar *const handle = module.handle.get();
        confirm(module.owner, VarArea::AnalogInput, handle, autoMallocInMap, getInMap);
        confirm(module.owner, VarArea::AnalogOutput, handle, autoMallocOutMap, getOutMap);
    }

    /// Only a range in @p wordArea is confirmed with the length of words.
    void confirm(const QString &owner, VarArea wordArea, SimpleExtendPar *handle, decltype(&autoMallocInMap) call,
                 decltype(&getInMap) rangeOf)
    {
        const IoMap before = rangeOf(handle);
        const int length = before.area == int(wordArea) ? before.count * 2 : (before.count + 7) / 8;
        const bool isConfirmed = call(handle);
        const IoMap after = rangeOf(handle);
        if (owner.isEmpty() || length == 0) {
            require(isConfirmed && after.start == before.start, "an empty range is not confirmed");
        } else if (m_memory.claim(owner, before.area, before.start, length)) {
            require(isConfirmed && after.start == before.start, "a free range is not confirmed");
        } else if (isConfirmed) {
            require(m_memory.claim(owner, after.area, after.start, length), "claimed memory is confirmed");
        } else {
            require(after.start == std::numeric_limits<quint16>::max(), "a range without room has a start");
        }
    }

    void release(std::size_t index)
    {
        Module module = std::move(m_modules[index]);
        m_modules.erase(m_modules.begin() + std::ptrdiff_t(index));
        check(module);
        const std::array ranges = {getInMap(module.handle.get()), getOutMap(module.handle.get())};
        module.handle.reset();
        for (const IoMap &range : ranges) {
            m_memory.free(module.owner, range);
        }
    }

    /// The dialog takes as long as a hundred other steps, so an input opens it at most once.
    void edit(Module &module)
    {
        if (!std::exchange(m_canEdit, false)) {
            return;
        }
        SimpleExtendPar *const handle = module.handle.get();
        const QByteArray state = save(handle);
        const std::array ranges = {getInMap(handle), getOutMap(handle)};
        const DialogEnd end = editInDialog(handle, module.owner, m_input);
        require(end != DialogEnd::Cancelled || save(handle) == state, "Cancel changes the module");
        for (const auto &[before, after] :
             {std::pair(ranges[0], getInMap(handle)), std::pair(ranges[1], getOutMap(handle))}) {
            if (end == DialogEnd::Accepted && after.start != before.start) {
                m_memory.free(module.owner, before);
                m_memory.claim(module.owner, after.area, after.start, MemoryModel::lengthOf(after));
            } else {
                require(after.start == before.start, "a dialog that is not accepted moves a range");
            }
        }
        // Decoders drop the mark.
        module.isSound = module.isSound && !getName(handle).startsWith(QChar::ByteOrderMark) &&
                         !getComment(handle).startsWith(QChar::ByteOrderMark);
        check(module);
    }

    void add(Module module)
    {
        check(module);
        if (m_modules.size() == maximumModules) {
            release(0);
        }
        m_modules.push_back(std::move(module));
    }

    static void check(const Module &module)
    {
        SimpleExtendPar *const handle = module.handle.get();
        require(getRackId(handle) == module.rack && getSlotId(handle) == module.slot &&
                    getPosition(handle) == module.position,
                "a module has another place");
    }

    InputCursor m_input;
    bool m_canEdit;
    MemoryModel m_memory;
    std::vector<Module> m_modules;
    std::vector<Block> m_blocks;
};

} // namespace

int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    prepare();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static std::array<char *, 2> argv = {const_cast<char *>("fuzz"), nullptr};
    static const QApplication application(argc, argv.data());
    // The platform warns that it has no window manager.
    QLoggingCategory::defaultCategory()->setEnabled(QtWarningMsg, false);
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = bytesOf(data, size);
    Session(input, isForCostlyChecks(input)).run();
    return 0;
}
