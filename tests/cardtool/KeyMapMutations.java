import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Random;

/**
 * Reads thousands of damaged key maps: each is either refused in the reader's own words or read as
 * a map that, written plainly and read again, is the same. The numbers are the same on every run.
 *
 * <p>usage: KeyMapMutations FOLDER_OF_KEY_MAPS
 */
final class KeyMapMutations {
    private static final Charset BYTES = StandardCharsets.ISO_8859_1;
    private static final Charset CODE_PAGE = Charset.forName("windows-1252");
    private static final int RUNS = 10_000;
    private static final String[] PIECES = {
        "<KeyMapping>", "</KeyMapping>", "<Mappings>", "</Mappings>", "<Mapping>", "</Mapping>", "<Keys>", "</Keys>",
        "<Task>", "</Task>", "<MenuName>", "</MenuName>", "</ConversationKeyMap>", "\"", "=", "\r", "\n", "\0", "&lt;",
        "<!DOCTYPE a [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>", "&e;", "<?xml?>", "é", "x".repeat(250)
    };

    private KeyMapMutations() {}

    public static void main(String[] arguments) throws Exception {
        List<String> seeds = new ArrayList<>();
        try (var files = Files.list(Path.of(arguments[0]))) {
            for (Path file : files.sorted().toList()) {
                seeds.add(Files.readString(file, BYTES));
                KeyMapReader.read(file);
            }
        }
        Random random = new Random(7);
        Path file = Files.createTempFile("key-map", ".XML");
        int read = 0;
        try {
            for (int run = 0; run < RUNS; run++) {
                String text = seeds.get(random.nextInt(seeds.size()));
                for (int changes = 1 + random.nextInt(3); changes > 0; changes--) {
                    text = damaged(text, random);
                }
                Files.writeString(file, text, BYTES);
                KeyMap map;
                try {
                    map = KeyMapReader.read(file);
                } catch (CardFailure refused) {
                    continue;
                }
                read++;
                String plain = plain(map);
                if (plain.indexOf('\uFFFD') >= 0) {
                    continue; // a byte that is no character of the code page cannot be written again
                }
                Files.writeString(file, plain, CODE_PAGE);
                if (!plain.equals(plain(KeyMapReader.read(file)))) {
                    throw new AssertionError("run " + run + ": another map when read again");
                }
            }
        } finally {
            Files.delete(file);
        }
        System.out.println(RUNS + " damaged key maps, " + read + " of them read, the others refused");
        if (read < RUNS / 100 || read > RUNS * 99 / 100) {
            throw new AssertionError("the damage is not of both kinds");
        }
    }

    private static String damaged(String text, Random random) {
        int from = random.nextInt(text.length() + 1);
        int to = Math.min(text.length(), from + random.nextInt(60));
        StringBuilder stretch = new StringBuilder(text.substring(from, to));
        switch (random.nextInt(5)) {
            case 0 -> stretch.setLength(0); // it goes,
            case 1 -> stretch.append(text, from, to); // comes twice,
            case 2 -> stretch.insert(0, PIECES[random.nextInt(PIECES.length)]); // behind something else,
            case 3 -> { // or has another byte in it
                if (from < to) stretch.setCharAt(random.nextInt(to - from), (char) random.nextInt(256));
            }
            default -> {}
        }
        String rest = random.nextInt(40) == 0 ? "" : text.substring(to);
        return text.substring(0, from) + stretch + rest;
    }

    private static String plain(KeyMap map) {
        StringBuilder text = new StringBuilder("<ConversationKeyMap conversationName=\"" + map.conversation
                + "\" product=\"" + map.product + "\" version=\"" + map.version + "\">\n");
        for (KeyMap.Section section : map.sections) {
            text.append("<KeyMapping><MenuName>" + section.name + "</MenuName><Mappings>\n");
            for (KeyMap.Mapping mapping : section.mappings) {
                text.append("<Mapping><Keys>" + mapping.keys + "</Keys><Task>" + mapping.task
                        + "</Task></Mapping>\n");
            }
            text.append("</Mappings></KeyMapping>\n");
        }
        return text + "</ConversationKeyMap>\n";
    }
}
