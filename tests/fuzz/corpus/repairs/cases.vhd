-- Generate statements that GHDL does not translate as they are.
library ieee; use ieee.std_logic_1164.all;
entity Leaf is port (a : in std_logic; y : out std_logic); end;
architecture rtl of Leaf is signal inner : std_logic; begin inner <= not a; y <= inner; end;
library ieee; use ieee.std_logic_1164.all;
entity top is
  generic (N : natural := 4; Mode : string := "fast"; Bits : std_logic_vector(1 downto 0) := "01");
  port (clk : in std_logic; q : out std_logic_vector(3 downto 0));
end entity;
architecture rtl of top is
  function picked(i : integer) return integer is
  begin
    case i is
      when 0 | 1 => return 3; -- when 4 => generate
      when others => for k in 0 to 3 loop exit when k = i; end loop;
    end case;
    return i;
  end function;
  signal d : std_logic_vector(0 to 3);
begin
  Sel : case N / 2 + 0 -- "when 2 =>"
  generate
    when 0 =>
      signal none : std_logic;
    begin none <= clk;
    when two :
         5 | 2 to 3 =>
      signal duo, unread : std_logic;
    begin
      process (clk) begin
        case clk is when '1' => duo <= not duo; when others => end case;
      end process;
      unread <= clk; d(0) <= duo when clk = '1' else '0';
    end two;
    when others =>
  end generate Sel;
  Speed : case Mode generate
    when "slow" => d(1) <= '0';
    when "fast" =>
      Way : case Bits generate
        when "00" => d(1) <= clk;
        when "01" => U : entity work.Leaf port map (clk, d(1));
        when others =>
      end generate;
    when others => d(1) <= '1';
  end generate;
  Lo : for i in 2 to 3 generate
    Ci : case i generate
      when 9 downto 3 => signal high : std_logic; begin high <= clk; d(i) <= high;
      when others => signal low : std_logic_vector(picked(i) downto 0); begin low <= (others => clk); d(i) <= low(0);
    end generate;
  end generate;
  q <= d;
end architecture;

--= top:top clk q[3:0] d[0:3]
--= top/Sel:Sel duo unread
--= top/Speed:Speed
--= top/Speed/Way:Way
--= top/Speed/Way/U:Leaf a y inner
--= top/Lo[2]:Lo
--= top/Lo[2]/Ci:Ci low[2:0]
--= top/Lo[3]:Lo
--= top/Lo[3]/Ci:Ci high
