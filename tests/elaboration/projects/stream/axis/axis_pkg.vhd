library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
library common; use common.common_pkg.all;
package axis_pkg is
  type side_t is record
    last : std_logic;
    Keep : std_logic_vector(1 downto 0);
  end record;
  type beat_t is record
    data  : std_logic_vector(15 downto 0);
    side  : side_t;
    valid : std_logic;
  end record;
  type beats_t is array (natural range <>) of beat_t;
  type status_t is record
    mode    : mode_t;
    seen    : mode_flags;
    version : version_t;
    taps    : byte_array(0 to 1);
  end record;
  constant NO_BEAT : beat_t := (data => (others => '0'), side => ('0', "00"), valid => '0');
end package;
