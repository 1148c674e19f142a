import java.nio.charset.Charset;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Random;

/**
 * Reads thousands of damaged key maps: each is either refused in the reader's own words or read as
 * a map that, written plainly and read again, is the same. The numbers are the same on every run.
 *
 * <p>usage: KeyMapMutations FOLDER_OF_KEY_MAPS
 */
final class KeyMapMutations {
    private static final Charset CODE_PAGE = Charset.forName("windows-1252");
    private static final int RUNS = 10_000;
    private static final String[] PIECES = {
        "<KeyMapping>", "</KeyMapping>", "<Mappings>", "</Mappings>", "<Mapping>", "</Mapping>", "<Keys>", "</Keys>",
        "<Task>", "</Task>", "<MenuName>", "</MenuName>", "</ConversationKeyMap>", "\"", "=", "\r", "\n", "\0", "&lt;",
        "<!DOCTYPE a [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>", "&e;", "<?xml?>", "é", "x".repeat(250)
    };

    private KeyMapMutations() {}

    public static void main(String[] arguments) throws Exception {
        List<byte[]> seeds = new ArrayList<>();
        try (var files = Files.list(Path.of(arguments[0]))) {
            for (Path file : files.sorted().toList()) {
                seeds.add(Files.readAllBytes(file));
                KeyMapReader.read(file);
            }
        }
        Random random = new Random(7);
        Path file = Files.createTempFile("key-map", ".XML");
        int read = 0;
        try {
            for (int run = 0; run < RUNS; run++) {
                byte[] bytes = seeds.get(random.nextInt(seeds.size()));
                for (int changes = 1 + random.nextInt(3); changes > 0; changes--) {
                    bytes = damaged(bytes, random);
                }
                Files.write(file, bytes);
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
                if (!map.equals(KeyMapReader.read(file))) {
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

    private static byte[] damaged(byte[] bytes, Random random) {
        int from = random.nextInt(bytes.length + 1);
        int to = Math.min(bytes.length, from + random.nextInt(60));
        byte[] middle =
                switch (random.nextInt(5)) {
                    case 0 -> new byte[0]; // a stretch goes,
                    case 1 -> twice(Arrays.copyOfRange(bytes, from, to)); // comes twice,
                    case 2 -> concat(PIECES[random.nextInt(PIECES.length)].getBytes(CODE_PAGE), bytes, from, to);
                    case 3 -> { // or has another byte in it
                        byte[] stretch = Arrays.copyOfRange(bytes, from, to);
                        if (stretch.length > 0) stretch[random.nextInt(stretch.length)] = (byte) random.nextInt(256);
                        yield stretch;
                    }
                    default -> Arrays.copyOfRange(bytes, from, to);
                };
        boolean cut = random.nextInt(40) == 0;
        byte[] head = concat(Arrays.copyOf(bytes, from), middle, 0, middle.length);
        return cut ? head : concat(head, bytes, to, bytes.length);
    }

    private static byte[] twice(byte[] bytes) {
        return concat(bytes, bytes, 0, bytes.length);
    }

    private static byte[] concat(byte[] front, byte[] bytes, int from, int to) {
        byte[] result = Arrays.copyOf(front, front.length + to - from);
        System.arraycopy(bytes, from, result, front.length, to - from);
        return result;
    }

    private static String plain(KeyMap map) {
        StringBuilder text = new StringBuilder("<ConversationKeyMap conversationName=\"" + map.conversation()
                + "\" product=\"" + map.product() + "\" version=\"" + map.version() + "\">\n");
        for (KeyMap.Section section : map.sections()) {
            text.append("<KeyMapping><MenuName>" + section.name() + "</MenuName><Mappings>\n");
            for (KeyMap.Mapping mapping : section.mappings()) {
                text.append("<Mapping><Keys>" + mapping.keys() + "</Keys><Task>" + mapping.task()
                        + "</Task></Mapping>\n");
            }
            text.append("</Mappings></KeyMapping>\n");
        }
        return text + "</ConversationKeyMap>\n";
    }
}
