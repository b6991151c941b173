#!/usr/bin/env python3
"""Writes hotel.tvk from hotel.toml, as if a user had typed it into a new project.

A new project is the system file without its country table. Each function below fills one section with the
rows that its editor would have saved: the same order, the same padding, "F" for a field that is not set.
`make_hotel.py --check` writes nothing and exits with status 1 if hotel.tvk is out of date.
"""

import argparse
import configparser
import sys
import tomllib
from pathlib import Path
from types import SimpleNamespace

HERE = Path(__file__).resolve().parent
SOURCE = HERE / "hotel.toml"
SYSTEM_FILE = HERE.parent / "data" / "system.tvs"
TARGET = HERE / "hotel.tvk"
CODE_PAGE = "latin-1"

# Cards by their names in the editor: type code and channels. The mixed card has no channels 5 to 8.
CARDS = {
    "SLIC 16": (1, range(1, 17)), "TRUNK 16": (2, range(1, 17)), "8 DIGITAL": (3, range(1, 9)),
    "4 DIGITAL 8 Ext": (4, [*range(1, 5), *range(9, 17)]), "E & M": (5, range(1, 5)),
    "E1 (1) 30": (6, range(1, 31)), "E1 (2) 60": (6, range(1, 61)), "SLIC 24": (7, range(1, 25)),
    "DISA / VM": (8, range(1, 9)), "TRUNK 08": (9, range(1, 9)), "TRUNK 12": (10, range(1, 13)),
    "TRUNK 16 Long Loop": (11, range(1, 17)), "SLIC 08": (12, range(1, 9)),
    "SLIC 16 Long Loop": (13, range(1, 17)), "12 DIGITAL": (14, range(1, 13)),
}
# Lists of the editors. The project stores the index in the list, from 0.
TRANSPORTS = ["Server", "Serial", "Modem", "LAN to Serial", "LAN"]
NUMBER_TYPES = ["Port", "Hunting Terminate", "Call Group", "Call Group All", "Hunt Circular",
                "Hunt Group All", "Hunt ACD", "Boss Number"]
PERSONAL_MESSAGES = ["No", "Immediately", "4 Rings"]
VM_USES = [None, "Use", "Auto Record", "Use & Auto Record"]
CALLER_IDS = ["OFF", "SDMF", "MDMF"]
CONNECTS = ["No", "Yes", "10 PPS", "20 PPS"]
MUSIC = ["Internal", "External 1", "External 2", "VM only", "VM on CO"]
REVERSES = ["No", "Use", "Destination", "Incoming"]
SEND_NUMBERS = ["DID Grp", "DID Ext"]
SEEKS = ["Start", "End", "Cycle", "Link CO"]
DAYS = [None, "SUN", "MON", "TUE", "WED", "THU", "FRI", "SAT"]
E1_MODES = ["Local", "Network", "Local Link", "Network Link"]
DID_KINDS = ["Number", "Route List", "Route Digit", "Not Exist", "Auto Answer"]
MANUAL_MODES = ["Day", "Night"]
POWER_REVISIONS = ["Revision 1", "Revision 2"]
RUN_SCRIPTS = ["Off Hook Time Out", "Help", "Wake Up", "Busy", "No Number", "Full Credit", "E1 Record VM"]
RING_TRANSFERS = {"Default": 8, "16 Rings Disc": 255}
INCOMING_TARGETS = {"DID": 1000, "Map_Digit": 2000, "Wait_Comp": 3000}
NO_LIMIT, EXTENSION = {"No Limit": 255}, {"Extension": 101}
# The fields of "Pbx" and "Billing" in order. The source does not use the lower-case names.
PBX_FIELDS = [
    "Auto Print Call Record", "Check Credit", "Auto / Manual", "Check Bad CO", "Warning Tone Before Cut",
    "Paper Feed", "Check Duplicate Record", "Record Last Person Use", "manual", "time limit",
    "Voice Mail Check Map Digit", "Check Class When Dial with Memory Code",
    'On CO When Found "X" in Route Map Digit', "DID Busy Transfer To", "Print Wakeup Call", "to message",
    "to number", "Use Trunk To Trunk", "Use Intrusion Tone", "power",
]
BILLING_FIELDS = [
    "local code", "Save Intercom", "Save Incoming", "Save Out Going", "Bill Flat", "Long Distance Charge %",
    "Oversea Charge %", "Mobile Charge %", "Long Distance Charge", "Oversea Charge", "Mobile Charge",
    "Incoming Rate", "Intercom Rate", "Time Expand", "Charge Expand", "Time Expand In", "Charge Expand In",
    "Local Time Record", "Time Page", "Time Mobile", "Time Long Distance", "Time Oversea", "Print Mini Bar",
    "Area Percent Charge", "Expand All",
]
LAYOUTS, LINK_TABLE_ROWS = 24, 16  # Their editors save all rows, and the system file has none of them.
EMPTY_PATTERN = "9C-9XXXXXXXX"  # Empty patterns are sorted as if they were this one.


class SourceError(Exception):
    """hotel.toml has something that no editor would accept."""


def row(*fields):
    """Joins fields to a row; None and the empty text are "not set"."""
    return "|".join("F" if field in (None, "") else str(field) for field in fields)


def take(entry, names):
    """Returns the named values of a source table, None for a missing one. Any other name is a typing error."""
    if unknown := entry.keys() - set(names.split()):
        raise SourceError(f"unknown {sorted(unknown)} in {entry}")
    return SimpleNamespace(**{name: entry.get(name) for name in names.split()})


def code(labels, label):
    """Returns the index of a label in a list of an editor; None stays None."""
    if label is not None and label not in labels:
        raise SourceError(f"{label!r} is not one of {labels}")
    return None if label is None else labels.index(label)


def text(value, most):
    """Checks that a text has at most that many bytes; None stays None."""
    if value is not None and len(value.encode(CODE_PAGE)) > most:
        raise SourceError(f"{value!r} is longer than {most}")
    return value


def padded(number, width=3):
    return None if number is None else f"{number:0{width}}"


def filled(labels, values, default=0):
    """Returns the values in the order of their labels, the default for missing ones."""
    if unknown := values.keys() - set(labels):
        raise SourceError(f"{sorted(unknown)} are not in {labels}")
    return [values.get(label, default) for label in labels]


def read_system_file():
    """Returns the sections of the system file in order, each as a dictionary of its keys."""
    parser = configparser.RawConfigParser(delimiters="=", comment_prefixes=";")
    parser.optionxform = str
    parser.read_string(SYSTEM_FILE.read_bytes().decode(CODE_PAGE))
    return {name: dict(parser[name]) for name in parser.sections()}


class Hotel:
    """The source, the sections in progress, and what all sections need of the source."""

    def __init__(self, source, sections):
        self.source = source
        self.sections = sections
        self.countries = {name: (key, sections.pop(key))
                          for key, name in sections.pop("Country").items() if key != "Cnt"}
        source["incoming"].sort(key=lambda entry: entry["name"])  # As the editor saves them.
        self.ports = self.make_ports()
        self.port_rows = {(port["card"], port["channel"]): i for i, port in enumerate(self.ports, 1)}
        self.telephones = {port["number"]: i for i, port in enumerate(self.ports, 1) if "number" in port}
        self.numbers = self.make_numbers()
        self.number_rows = {entry["number"]: i for i, entry in enumerate(self.numbers, 1)}
        if len(self.number_rows) < len(self.numbers):
            raise SourceError("a directory number is used twice")

    def make_ports(self):
        """Returns the ports of all cards in card order, with the source's data of the telephone or line."""
        cards = sorted((int(slot), *CARDS[name]) for slot, name in self.source["cards"].items())
        ports = [{"card": slot, "channel": channel, "type": kind} for slot, kind, channels in cards
                 for channel in channels]
        for line in self.source["lines"]:
            first, last = line["channels"]
            for port in ports:
                if port["card"] == line["card"] and first <= port["channel"] <= last:
                    port.update({key: line[key] for key in line.keys() - {"card", "channels"}})
        for group in self.source["telephones"]:
            free = (port for port in ports if port["card"] in group["cards"] and "profile" not in port)
            shared = {key: group[key] for key in group.keys() - {"cards", "phones", "rooms"}}
            rooms = [{"number": number, "name": group["name"].format(number)}
                     for first, last in group.get("rooms", []) for number in range(first, last + 1)]
            for phone in group.get("phones", []) + rooms:
                port = next(free, None)
                if port is None:
                    raise SourceError(f"no free port for {phone}")
                port.update(shared | phone)
        return ports

    def make_numbers(self):
        """Returns all directory numbers with type and value, ascending as the editor saves them."""
        numbers = [{**port, "type": "Port", "value": padded(i)} for i, port in enumerate(self.ports, 1)
                   if "number" in port]
        numbers += [{**hunt, "type": hunt["kind"], "value": i}
                    for i, hunt in enumerate(self.source["hunt_groups"], 1)]
        numbers += [{**group, "type": group["kind"], "value": padded(group["group"], 2)}
                    for group in self.source["call_groups"]]
        numbers += [{**boss, "type": "Boss Number", "value": i}
                    for i, boss in enumerate(self.source["bosses"], 1) if "number" in boss]
        return sorted(numbers, key=lambda entry: entry["number"])

    def put(self, section, keys):
        self.sections[section].update({key: str(value) for key, value in keys.items()})

    def put_rows(self, section, rows, width=2):
        """Puts rows under their numbers from 1; the section must have room for them."""
        room = int(self.sections[section].get("Max", len(rows)))
        if len(rows) > room:
            raise SourceError(f"{section}: {len(rows)} rows, room for {room}")
        self.put(section, {padded(i, width): value for i, value in enumerate(rows, 1)})

    def put_pool(self, section, groups):
        """Puts groups of members that share one pool; "Now" is the total number of members."""
        self.put_rows(section, ["|".join(members) for members in groups])
        self.put(section, {"Now": sum(map(len, groups))})

    def number_row(self, number):
        return padded(self.number_rows[number])

    def port_rows_of(self, entry):
        first, last = entry["channels"]
        return [padded(self.port_rows[entry["card"], channel]) for channel in range(first, last + 1)]

    def place(self, table, name):
        """Returns the number, from 1, of the entry with that name in a source table; None stays None."""
        return None if name is None else 1 + code([entry["name"] for entry in self.source[table]], name)


def connection(hotel):
    c = take(hotel.source["connection"], "by host port bps")
    hotel.put("Chk_Tarvok", {"By": code(TRANSPORTS, c.by), "IPHost": c.host, "IPPort": c.port, "BPS": c.bps})


def port_def(hotel):
    rows = []
    for port in hotel.ports:
        p = take(port, "card channel type number name company profile tenant pickup day night dnd disa co "
                       "ext busy no_answer ring password vm_group language personal screen vm_use expand")
        rows.append(row(
            p.card, p.channel, p.type, hotel.place("profiles", p.profile), hotel.place("tenants", p.tenant),
            p.pickup, padded(hotel.place("incoming", p.day)), padded(hotel.place("incoming", p.night)),
            1 if p.dnd else None, *(text(to, 12) for to in (p.disa, p.co, p.ext, p.busy, p.no_answer)),
            p.ring, p.number and hotel.number_row(p.number), text(p.password, 4), p.vm_group, p.language,
            code(PERSONAL_MESSAGES, p.personal), 1 if p.screen else None, code(VM_USES, p.vm_use),
            1 if p.expand else None))
    hotel.put_rows("Port_Def", rows, 3)


def port_config(hotel):
    rows = []
    for profile in hotel.source["profiles"]:
        p = take(profile, "name day night transfer_line cid connect music co_min co_in_min override hotline "
                          "hook reverse fax no_print link_trunk warning hang_on_s hold_cut ring_transfer")
        service = [padded(hotel.place("service_classes", name), 2) for name in (p.day, p.night, p.hold_cut)]
        rings = RING_TRANSFERS.get(p.ring_transfer or "Default", p.ring_transfer)
        rows.append(row(
            *service[:2], int(p.transfer_line or 0), code(CALLER_IDS, p.cid) or 0,
            code(CONNECTS, p.connect) or 0, code(MUSIC, p.music) or 0, p.co_min or 0, p.co_in_min or 0,
            p.override or 0, text(p.hotline, 12), int(p.hook or 0), code(REVERSES, p.reverse) or 0,
            int(p.fax or 0), int(p.no_print or 0), hotel.place("link_trunks", p.link_trunk) or 0,
            int(p.warning or 0), p.hang_on_s or 0, service[2], rings))
    hotel.put_rows("PortConfig", rows)


def assign_and_name(hotel):
    rows, names = [], []
    for entry in hotel.numbers:
        if entry.get("name"):
            names.append(text(entry["name"], 15))
        rows.append(row(text(str(entry["number"]), 6), code(NUMBER_TYPES, entry["type"]), entry["value"],
                        entry.get("company"), padded(len(names)) if entry.get("name") else None))
    hotel.put_rows("Assign", rows, 3)
    hotel.put_rows("Name", names, 3)
    hotel.put("Name", {"Now": len(names)})


def accounts(hotel):
    rows = []
    for account in hotel.source["accounts"]:
        a = take(account, "code password number profile tenant seconds")
        rows.append(row(text(a.code, 6), text(a.password, 4), a.number and hotel.number_row(a.number),
                        hotel.place("profiles", a.profile), hotel.place("tenants", a.tenant), a.seconds))
    hotel.put_rows("Account", rows, 3)


def keys_and_consoles(hotel):
    layouts = [take(layout, "keys console") for layout in hotel.source["layouts"]]
    keys = [[key_field(hotel, key) for key in layout.keys] for layout in layouts]
    consoles = [[f"EX{number}" for first, last in layout.console for number in hotel.telephones
                 if first <= number <= last] for layout in layouts]
    for section, rows, buttons in (("Key", keys, 20), ("DSS", consoles, 64)):
        if max(map(len, rows)) > buttons:
            raise SourceError(f"a layout has more than {buttons} buttons in {section}")
        rows += [[]] * (LAYOUTS - len(rows))
        hotel.put_rows(section, [row(*fields, *[None] * (buttons - len(fields))) for fields in rows])


def key_field(hotel, key):
    """Returns a button as stored; "GO" has the name of a group out and optional digits after a comma."""
    kind, argument = key.split(" ", 1)
    if kind != "GO":
        return kind + argument
    name, comma, digits = argument.partition(",")
    return f"GO{hotel.place('groups_out', name)}{comma}{digits}"


def small_number_tables(hotel):
    pairs = [(boss["boss"], boss["secretary"]) for boss in hotel.source["bosses"]]
    hotel.put_rows("BOSS", [row(*(padded(hotel.telephones[number]) for number in pair)) for pair in pairs])
    hotel.put_rows("LinkTrunk", [text(trunk["number"], 16) for trunk in hotel.source["link_trunks"]])
    hotel.put_rows("DialPhone", [text(number, 8) for number in hotel.source["dial_phone"]["numbers"]])
    hotel.put_rows("VMCallBack", [row(text(entry["check"], 4), text(entry.get("insert"), 4))
                                  for entry in hotel.source["voice_mail_call_back"]])


def route_map(hotel):
    """The editor sorts by pattern and saves all rows, empty ones too."""
    rows = []
    for entry in hotel.source["route_map"]:
        e = take(entry, "digits send list release_co minutes")
        target = EXTENSION.get(e.list) or padded(hotel.place("route_lists", e.list), 2)
        rows.append((text(e.digits, 19), row(e.digits, code(SEND_NUMBERS, e.send), target, e.release_co,
                                             NO_LIMIT.get(e.minutes, e.minutes or 0))))
    empty = int(hotel.sections["Route_Map_Digit"]["Max"]) - len(rows)
    rows += [(EMPTY_PATTERN, row(None, None, None, None, 0))] * empty
    hotel.put_rows("Route_Map_Digit", [value for _, value in sorted(rows)], 3)


def route_lists(hotel):
    """All routes are in one table; a list stores the number after that of its last route."""
    ends, rows = [], []
    for entry in hotel.source["route_lists"]:
        # Before a save the editor sorts a list by group, then by the label of the seek.
        routes = sorted(entry["routes"], key=lambda r: (hotel.place("groups_out", r["group"]), r["seek"]))
        rows += [route_row(hotel, route) for route in routes]
        ends.append(len(rows) + 1 if rows else 0)
    ends += ends[-1:] * (int(hotel.sections["Route_List"]["Max"]) - len(ends))
    hotel.put_rows("Route_List", ends)
    hotel.put_rows("Route", rows, 3)


def route_row(hotel, route):
    r = take(route, "group seek day date month start end send save")
    return row(padded(hotel.place("groups_out", r.group), 2), code(SEEKS, r.seek), code(DAYS, r.day) or 0,
               r.date, r.month, text(r.start, 4), text(r.end, 4), text(r.send, 19), text(r.save, 19))


def pools(hotel):
    hotel.put_pool("Group_Out", [hotel.port_rows_of(group) for group in hotel.source["groups_out"]])
    hotel.put_pool("HuntGroup", [[hotel.number_row(number) for number in hunt["members"]]
                                 for hunt in hotel.source["hunt_groups"]])


def classes(hotel):
    for i, entry in enumerate(hotel.source["digit_classes"], 1):
        hotel.put("COR", {padded(i, 2): "|".join(entry["ban"]), padded(i, 2) + "A": "|".join(entry["allow"])})
    groups = [[padded(hotel.place("digit_classes", name), 2) for name in group["classes"]]
              for group in hotel.source["service_classes"]]
    hotel.put_rows("COR_Group", ["|".join(group) for group in groups])


def incoming_lists(hotel):
    """A list has three destinations at most."""
    rows = []
    for entry in hotel.source["incoming"]:
        e = take(entry, "name to seconds")
        targets = [INCOMING_TARGETS.get(to) or hotel.number_row(to) for to in e.to]
        rows.append(row(e.name, *targets, *[None] * (3 - len(targets)), e.seconds))
    hotel.put_rows("Incoming_List", rows)


def tenants(hotel):
    """Bit k of a row is column k + 1. Ranges 300 and 400 hold columns 17 to 32, ranges 100 and 200 columns 1 to 16."""
    keys = hotel.sections["Tenan"]
    for i, entry in enumerate(hotel.source["tenants"], 1):
        tenant = take(entry, "name barred_day barred_night")
        for low, high, barred in ((100, 300, tenant.barred_day), (200, 400, tenant.barred_night)):
            mask = int(keys[str(high + i)] + keys[str(low + i)], 2)
            for name in barred or []:
                mask &= ~(1 << (hotel.place("tenants", name) - 1))
            bits = f"{mask:032b}"
            hotel.put("Tenan", {str(high + i): bits[:16], str(low + i): bits[16:]})


def e1_links(hotel):
    links, numberings = [], []
    for i, entry in enumerate(hotel.source["e1_links"], 1):
        link = take(entry, "name card channels mode numbering digit_check")
        ports = hotel.port_rows_of(entry)
        links.append(row(ports[0], ports[-1], code(E1_MODES, link.mode)))
        numberings.append(row(padded(i, 2), text(link.numbering, 20), link.digit_check))
    hotel.put_rows("E1Map", links)
    hotel.put_rows("E1Number", numberings)


def did_redirect(hotel):
    rows = []
    for entry in hotel.source["direct_dial"]:
        e = take(entry, "link first last kind target staff")
        ranges = [(e.first, e.last, e.kind, e.target)]
        if e.staff:
            ranges = [(n, n, "Number", n) for n in hotel.telephones if e.staff[0] <= n <= e.staff[1]]
        for first, last, kind, target in ranges:
            is_number = kind == "Number"
            to = hotel.number_row(target) if is_number else padded(hotel.place("route_lists", target), 2)
            rows.append((hotel.place("e1_links", e.link), first, last, code(DID_KINDS, kind), to))
    hotel.put_rows("DIDRedirect", [row(*fields) for fields in sorted(rows, key=lambda fields: fields[:2])], 3)


def system(hotel):
    s = take(hotel.source["system"], "voice_mail recorder music holidays hours")
    for table, key in ((hotel.port_rows, (s.music["card"], s.music["channel"])),
                       (hotel.number_rows, s.voice_mail), (hotel.number_rows, s.recorder)):
        table[key]  # Fails if the port or number does not exist.
    hotel.put("SystemConfig", {"port": s.music["channel"], "card": s.music["card"], "VMNum": s.voice_mail,
                               "RecNum": s.recorder})
    hotel.put("SystemConfig", {day: "|".join(times) for day, times in s.hours.items()})
    hotel.put("SystemConfig", {f"W{i:02}": day.replace("-", "|") for i, day in enumerate(s.holidays, 1)})


def pabx_mode(hotel):
    mode = take(hotel.source["pabx"], "on manual trunk_to_trunk_min did_busy_to power")
    values = filled(PBX_FIELDS, dict.fromkeys(mode.on, 1) | {
        "manual": code(MANUAL_MODES, mode.manual), "time limit": mode.trunk_to_trunk_min,
        "DID Busy Transfer To": 1, "to number": padded(hotel.telephones[mode.did_busy_to]),
        "power": code(POWER_REVISIONS, mode.power)})
    hotel.put("SystemConfig", {"Pbx": row(*values)})


def billing_mode(hotel):
    bill = take(hotel.source["billing"], "country local_code on values")
    number, codes = hotel.countries[bill.country]
    position = 1 + code([name for key, name in codes.items() if key.isdigit()], bill.local_code)
    values = filled(BILLING_FIELDS,
                    dict.fromkeys(bill.on, 1) | bill.values | {"local code": padded(position, 2)})
    hotel.put("SystemConfig", {"CCode": number, "Billing": row(*values)})


def side_tables(hotel):
    """Run script, link table, address and mini bar. Some of these rows end with a pipe."""
    hotel.put("RunScript", {"Data": row(*filled(RUN_SCRIPTS, hotel.source["run_script"], None)) + "|"})
    table = take(hotel.source["link_table"], "pbx_id gateway routes")
    entries = {route["entry"]: row(route["card"], route["device"]) for route in table.routes}
    hotel.put_rows("TblRoute", [entries.get(i, row(None, None)) for i in range(1, LINK_TABLE_ROWS + 1)])
    hotel.put("TblRoute", {"PID": table.pbx_id, "GW": table.gateway})
    lan = take(hotel.source["lan"], "ip mac")
    hotel.put("IP", {"MAC": lan.mac.replace("-", "|") + "|", "IP": lan.ip.replace(".", "|") + "|"})
    items = hotel.source["mini_bar"].items()
    hotel.put_rows("MiniBar", [row(text(name, 16), price) + "|" for name, price in items], 3)


def build():
    """Returns the bytes of hotel.tvk."""
    hotel = Hotel(tomllib.loads(SOURCE.read_text(encoding="utf-8")), read_system_file())
    for fill in (connection, port_def, port_config, assign_and_name, accounts, keys_and_consoles,
                 small_number_tables, route_map, route_lists, pools, classes, incoming_lists, tenants,
                 e1_links, did_redirect, system, pabx_mode, billing_mode, side_tables):
        fill(hotel)
    blocks = ["".join([f"[{name}]\r\n", *(f"{key}={value}\r\n" for key, value in keys.items())])
              for name, keys in hotel.sections.items()]
    return "\r\n".join(blocks).encode(CODE_PAGE)


def main():
    parser = argparse.ArgumentParser(description=f"writes {TARGET.name} from {SOURCE.name}")
    parser.add_argument("--check", action="store_true", help="write nothing, compare only")
    check = parser.parse_args().check
    try:
        wanted = build()
    except (SourceError, KeyError, OSError, tomllib.TOMLDecodeError) as error:
        sys.exit(f"{SOURCE.name}: {'there is no ' * isinstance(error, KeyError)}{error}")
    if not check:
        TARGET.write_bytes(wanted)
    elif not TARGET.is_file() or TARGET.read_bytes() != wanted:
        sys.exit(f"{TARGET.name} is not what {SOURCE.name} says: run {Path(__file__).name}")


if __name__ == "__main__":
    main()
