<?php

define( 'BRASSLET_NAMES_PER_PAGE', 20 );

/**
 * Shows the published names, with a search, and a button for each that checks it.
 */
function brasslet_show_names() {
	$table = brasslet_names_table();
	$table->prepare_items();
	// The buttons of the rows belong to this form: the one for the search holds the list.
	$target = brasslet_page_url() . '#brasslet-checked';
	echo '<form id="brasslet-check" method="post" action="' . esc_url( $target ) . '">';
	wp_nonce_field( 'brasslet_check', 'brasslet_check_nonce' );
	echo '</form>';
	echo '<form class="brasslet-names" method="get" action="' . esc_url( admin_url( 'options-general.php' ) ) . '">';
	echo '<input type="hidden" name="page" value="brasslet">';
	$table->search_box( 'Search names', 'brasslet' );
	$table->display();
	echo '</form>';
}

/**
 * Finds the names to list: those that hold what is searched for, in alphabetical order.
 *
 * @param string $search What is searched for; empty for all.
 * @return array[] Rows, each with its "paymail".
 */
function brasslet_find_names( $search ) {
	$found = array();
	foreach ( brasslet_rows() as $row ) {
		$row['paymail'] = brasslet_handle( $row );
		if ( '' === $search || false !== stripos( implode( ' ', $row ), $search ) ) {
			$found[] = $row;
		}
	}
	usort(
		$found,
		function ( $one, $other ) {
			return strnatcmp( $one['alias'], $other['alias'] );
		}
	);
	return $found;
}

/**
 * Makes WordPress' list table of the names. Its class is there on pages that need it only.
 *
 * @return WP_List_Table
 */
function brasslet_names_table() {
	require_once ABSPATH . 'wp-admin/includes/class-wp-list-table.php';

	return new class( array( 'plural' => 'names', 'singular' => 'name' ) ) extends WP_List_Table {

		/**
		 * The columns.
		 *
		 * @return string[]
		 */
		public function get_columns() {
			return array(
				'alias'   => 'Name',
				'paymail' => 'Paymail',
				'address' => 'Address',
				'house'   => 'House paymail',
				'check'   => 'Wallets see',
			);
		}

		/**
		 * Picks the names of this page of the list.
		 */
		public function prepare_items() {
			// phpcs:ignore WordPress.Security.NonceVerification -- only says which names are shown.
			$search = sanitize_text_field( brasslet_string( wp_unslash( $_GET['s'] ?? '' ) ) );
			$found  = brasslet_find_names( $search );
			$this->set_pagination_args(
				array(
					'total_items' => count( $found ),
					'per_page'    => BRASSLET_NAMES_PER_PAGE,
				)
			);
			$first       = ( $this->get_pagenum() - 1 ) * BRASSLET_NAMES_PER_PAGE;
			$this->items = array_slice( $found, $first, BRASSLET_NAMES_PER_PAGE );

			$this->_column_headers = array( $this->get_columns(), array(), array(), 'alias' );
		}

		/**
		 * A cell without a button.
		 *
		 * @param array  $item        The name's row.
		 * @param string $column_name The column.
		 * @return string
		 */
		protected function column_default( $item, $column_name ) {
			return '<span class="brasslet-value">' . esc_html( $item[ $column_name ] ) . '</span>';
		}

		/**
		 * The address, with the button that copies it.
		 *
		 * @param array $item The name's row.
		 * @return string
		 */
		protected function column_address( $item ) {
			return sprintf(
				'<code class="brasslet-value">%1$s</code>'
				. ' <button type="button" class="button button-small brasslet-copy" data-clipboard-text="%2$s"'
				. ' aria-label="%3$s" hidden>Copy</button>',
				esc_html( $item['address'] ),
				esc_attr( $item['address'] ),
				esc_attr( 'Copy the address of ' . $item['paymail'] )
			);
		}

		/**
		 * The button that checks the name.
		 *
		 * @param array $item The name's row.
		 * @return string
		 */
		protected function column_check( $item ) {
			return sprintf(
				'<button class="button button-small" form="brasslet-check" name="brasslet_check" value="%1$s"'
				. ' aria-label="%2$s">Check</button>',
				esc_attr( $item['alias'] ),
				esc_attr( 'Check ' . $item['paymail'] )
			);
		}

		/**
		 * Said where there is nothing to list.
		 */
		public function no_items() {
			// phpcs:ignore WordPress.Security.NonceVerification -- only says which names are shown.
			echo empty( $_GET['s'] ) ? 'No name is published yet.' : 'No name holds that.';
		}
	};
}
