library ieee; use ieee.std_logic_1164.all;
library axis; use axis.axis_pkg.all;
entity pipeline is
  generic (DEPTH : positive; USER_BITS : natural := 0);
  port (
    clk    : in  std_logic;
    input  : in  beat_t;
    user   : in  std_logic_vector(USER_BITS - 1 downto 0);
    output : out beat_t;
    Busy   : out std_logic_vector(0 to DEPTH - 1)
  );
end entity;
architecture rtl of pipeline is
  type users_t is array (0 to DEPTH) of std_logic_vector(USER_BITS - 1 downto 0);
  signal beats : beats_t(0 to DEPTH);
  signal users : users_t;
  signal go    : std_logic_vector(DEPTH downto 0);
begin
  beats(0) <= input;
  users(0) <= user;
  go(DEPTH) <= '1';
  stages : for i in 0 to DEPTH - 1 generate
    signal odd : std_logic;
  begin
    stage : entity axis.skid
      generic map (USER_BITS => USER_BITS)
      port map (clk => clk, s_beat => beats(i), s_user => users(i), s_ready => go(i),
                m_beat => beats(i + 1), m_user => users(i + 1), m_ready => go(i + 1));
    odd <= beats(i).data(0);
    Busy(i) <= odd and not go(i);
  end generate;
  output <= beats(DEPTH);
end architecture;
