import java.util.ArrayList;
import java.util.List;
import java.util.Set;

/** What a key map file says: one conversation, its menus, and the keys of each. */
final class KeyMap {
    /** The stock conversations as the editor's menu names them. */
    private static final Set<String> STOCK = Set.of(
            "Standard Conversation", "Optional Conversation 1", "Alternate Keypad Mapping (N)",
            "Alternate Keypad Mapping (S)", "Alternate Keypad Mapping (X)");

    final String conversation;
    final String product;
    final String version;
    final List<Section> sections;

    KeyMap(String conversation, String product, String version, List<Section> sections) {
        this.conversation = conversation;
        this.product = product;
        this.version = version;
        this.sections = List.copyOf(sections);
    }

    /**
     * A stock conversation is the same on many servers; the one that its file names is that on which
     * the file was made, not that of whoever prints it.
     */
    boolean isStock() {
        return STOCK.contains(conversation);
    }

    /** The menus as a subscriber needs them: without tasks that bear no name, and no menu that is empty. */
    List<Section> sectionsOnPaper() {
        List<Section> printed = new ArrayList<>();
        for (Section section : sections) {
            List<Mapping> named = new ArrayList<>(section.mappings);
            named.removeIf(mapping -> !mapping.isNamed());
            if (!named.isEmpty()) {
                printed.add(new Section(section.name, named));
            }
        }
        return printed;
    }

    /** One menu of the conversation; it may have no mapping at all. */
    static final class Section {
        final String name;
        final List<Mapping> mappings;

        Section(String name, List<Mapping> mappings) {
            this.name = name;
            this.mappings = List.copyOf(mappings);
        }
    }

    static final class Mapping {
        /** What the file says of an action for which it has no words. */
        private static final String NAMELESS = "ERROR, invalid key name!";

        final String keys;
        final String task;

        Mapping(String keys, String task) {
            this.keys = keys;
            this.task = task;
        }

        boolean isNamed() {
            return !task.equals(NAMELESS);
        }

        /** A task that not every subscriber has is marked by an asterisk at its end. */
        boolean isConditional() {
            return task.endsWith("*");
        }
    }
}
