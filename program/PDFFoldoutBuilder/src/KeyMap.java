import java.util.List;

/** What a key map file says: one conversation, its menus, and the keys of each. */
record KeyMap(String conversation, String product, String version, List<Section> sections) {
    /** One menu of the conversation; it may have no mapping at all. */
    record Section(String name, List<Mapping> mappings) {}

    record Mapping(String keys, String task) {
        /** A task that not every subscriber has is marked by an asterisk at its end. */
        boolean isConditional() {
            return task.endsWith("*");
        }
    }
}
