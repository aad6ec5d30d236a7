library ieee; use ieee.std_logic_1164.all;
entity leaf is port (a : in std_logic; b : out std_logic); end;
architecture rtl of leaf is begin b <= not a; end;

library ieee; use ieee.std_logic_1164.all;
entity Blocks is
  port (Clk : in std_logic; Q : out std_logic_vector(0 to 1));
end entity Blocks;
architecture rtl of Blocks is
  type Mode_t is (Idle, Run, 'x');
  type Pair_t is record Left, Right : std_logic_vector(3 downto 0); end record;
  subtype Some_t is Mode_t range Idle to Run;
  signal mode : Some_t;
  signal pair : Pair_t;
  signal duty : std_logic_vector(16#1# downto 0) := (others => '0');
  signal \two words\ : std_logic;
  signal number : integer range -1 to 7;
  signal level : real;
  function f(a : integer) return integer is
  begin if a > 1 then return 2; end if; return a; end;
  for all : leaf use entity work.leaf(rtl);
begin
  G : for i in 0 to 1 generate
    signal inside : std_logic;
  begin
    b : block is
      signal inner : std_logic_vector(3 downto 2);
    begin
      u : entity work.leaf(rtl) port map (a => inside, b => inner(2));
    end block;
  end generate;
  c : case 2 generate
    when one : 1 => signal s : std_logic; begin s <= '0'; end one;
    when others => process begin wait; end process;
  end generate;
end architecture;
