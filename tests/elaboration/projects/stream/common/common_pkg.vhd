library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
package Common_Pkg is
  type mode_t is (Idle, Fill, Drain, Fault);
  type mode_flags is array (mode_t) of std_logic;
  type byte_array is array (natural range <>) of std_logic_vector(7 downto 0);
  subtype level_t is integer range 0 to 63;
  type version_t is record
    Major : unsigned(3 downto 0);
    Minor : unsigned(0 to 3);
  end record;
  function bits_for(n : positive) return natural;
end package;
package body Common_Pkg is
  function bits_for(n : positive) return natural is
    variable rest : natural := n - 1;
    variable bits : natural := 0;
  begin
    while rest > 0 loop
      rest := rest / 2;
      bits := bits + 1;
    end loop;
    return bits;
  end function;
end package body;
