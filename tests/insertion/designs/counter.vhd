library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
entity stage is
  port (clk, rst, enable : in std_logic; q : out std_logic; carry : out std_logic);
end entity;
architecture rtl of stage is
  signal held : std_logic;
begin
  process (clk) begin
    if rising_edge(clk) then
      if rst = '1' then
        held <= '0';
      elsif enable = '1' then
        held <= not held;
      end if;
    end if;
  end process;
  q     <= held;
  carry <= enable and held;
end architecture;
library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
entity counter is
  port (clk, rst : in std_logic; value : out std_logic_vector(2 downto 0); stages : out std_logic_vector(1 to 3));
end entity;
architecture rtl of counter is
  signal carry : std_logic_vector(0 to 3);
  signal bits  : unsigned(12 downto 10);
begin
  carry(0) <= '1';
  each : for n in 0 to 2 generate
    signal q_here : std_logic;
  begin
    u_stage : entity work.stage port map (clk => clk, rst => rst, enable => carry(n), q => q_here, carry => carry(n + 1));
    bits(10 + n) <= q_here;
  end generate;
  value  <= std_logic_vector(bits);
  stages <= std_logic_vector(bits);
end architecture;
