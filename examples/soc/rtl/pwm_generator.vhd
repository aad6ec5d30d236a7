-- A pulse whose width is duty of 2**WIDTH clocks. A new duty counts from the next period on.
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity pwm_generator is
    generic (WIDTH : positive := 8);
    port (
        clk          : in  std_logic;
        rst          : in  std_logic;
        duty         : in  std_logic_vector(WIDTH - 1 downto 0);
        output_level : out std_logic);
end entity;

architecture rtl of pwm_generator is
    signal phase       : unsigned(WIDTH - 1 downto 0);
    signal active_duty : unsigned(WIDTH - 1 downto 0);
    signal last_phase  : std_logic;
begin

    last_phase <= '1' when phase = 2 ** WIDTH - 1 else '0';

    process (clk)
    begin
        if rising_edge(clk) then
            if rst = '1' then
                phase        <= (others => '0');
                active_duty  <= (others => '0');
                output_level <= '0';
            else
                phase <= phase + 1;
                if last_phase = '1' then
                    active_duty <= unsigned(duty);
                end if;
                if phase < active_duty then
                    output_level <= '1';
                else
                    output_level <= '0';
                end if;
            end if;
        end if;
    end process;

end architecture;
